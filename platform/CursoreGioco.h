#pragma once

#include <QCursor>

// The game's own large pointer: a big yellow arrow with a black edge, easy to
// follow for a child or a user with low vision. Screens use it unless the
// profile asks for the system pointer (DisabilitaMousePersonalizzato).
QCursor CursoreGioco();

// The large pointer, or the system one when `sistema` is true.
QCursor CursoreScelto(bool sistema);
