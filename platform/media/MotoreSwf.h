#pragma once

#include "platform/media/Filmato.h"

// The film faces' backend for SWF movies, drawn by the game's own renderer.
// Filmato asks it before the others when the renderer is built in.
MotoreRegistrato MotoreSwf();
