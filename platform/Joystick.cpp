#include "platform/Joystick.h"

#include <QElapsedTimer>
#include <QTimer>

#ifdef COPPIE_CON_SDL
#define SDL_MAIN_HANDLED
#include <SDL.h>
#endif

namespace {

std::function<std::unique_ptr<SorgenteJoystick>()> &creaDiProva()
{
    static std::function<std::unique_ptr<SorgenteJoystick>()> f;
    return f;
}

std::function<qint64()> &momentoDiProva()
{
    static std::function<qint64()> f;
    return f;
}

#ifdef COPPIE_CON_SDL
// SDL's joystick events, asked for a few times each frame; SDL is started
// for joysticks only and does not touch the game's windows or sound.
class JoystickSdl final : public SorgenteJoystick
{
public:
    JoystickSdl()
    {
        SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
        avviato = SDL_InitSubSystem(SDL_INIT_JOYSTICK) == 0;
        if (!avviato)
            return;
        SDL_JoystickEventState(SDL_ENABLE);
        apriPrimo();
        lettura.setInterval(8);
        QObject::connect(&lettura, &QTimer::timeout, this, [this] { leggi(); });
        lettura.start();
    }
    ~JoystickSdl() override
    {
        lettura.stop();
        if (joy)
            SDL_JoystickClose(joy);
        if (avviato)
            SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    }

private:
    void apriPrimo()
    {
        for (int i = 0; !joy && i < SDL_NumJoysticks(); ++i)
            joy = SDL_JoystickOpen(i);
        id = joy ? SDL_JoystickInstanceID(joy) : -1;
    }
    void leggi()
    {
        SDL_Event e;
        while (SDL_PollEvent(&e)) {
            switch (e.type) {
            case SDL_JOYDEVICEADDED:
                if (!joy)
                    apriPrimo();
                break;
            case SDL_JOYDEVICEREMOVED:
                if (joy && e.jdevice.which == id) {
                    SDL_JoystickClose(joy);
                    joy = nullptr;
                    apriPrimo();
                }
                break;
            case SDL_JOYBUTTONDOWN:
            case SDL_JOYBUTTONUP:
                if (joy && e.jbutton.which == id)
                    emit Pulsante(e.jbutton.button, e.type == SDL_JOYBUTTONDOWN);
                break;
            default: break;
            }
        }
    }

    QTimer lettura;
    SDL_Joystick *joy = nullptr;
    SDL_JoystickID id = -1;
    bool avviato = false;
};
#endif

} // namespace

std::unique_ptr<SorgenteJoystick> CreaJoystick()
{
    if (creaDiProva())
        return creaDiProva()();
#ifdef COPPIE_CON_SDL
    return std::make_unique<JoystickSdl>();
#else
    return std::make_unique<SorgenteJoystick>();
#endif
}

void ImpostaJoystickPerProve(std::function<std::unique_ptr<SorgenteJoystick>()> crea)
{
    creaDiProva() = std::move(crea);
}

qint64 MomentoIngresso()
{
    if (momentoDiProva())
        return momentoDiProva()();
    static QElapsedTimer orologio = [] {
        QElapsedTimer o;
        o.start();
        return o;
    }();
    return orologio.elapsed();
}

void ImpostaMomentoIngressoPerProve(std::function<qint64()> momento) { momentoDiProva() = std::move(momento); }
