#pragma once

// The sound of a film, as the game's mixer sees it: a source of samples that
// the timeline feeds (interface thread) and the mixer pulls (sound thread).

namespace swf {

class UscitaSuono {
public:
    virtual ~UscitaSuono() = default;
    // Adds `fotogrammi` stereo frames at `frequenza` Hz into `stereo`
    // (interleaved left, right; full scale is 1.0). True when anything sounded.
    virtual bool mescola(float *stereo, int fotogrammi, int frequenza) = 0;
    // Voices sounding now: event sounds and soundtracks.
    virtual int vociAttive() const = 0;
};

} // namespace swf
