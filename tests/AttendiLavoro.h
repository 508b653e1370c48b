#pragma once

#include <QTest>

// Waits for work done on another thread, for as long as it takes: a busy
// machine makes the wait longer, never the test fail. Should the work never
// end, ctest's timeout for the test stops it.
template <typename Condizione>
void AttendiFinche(Condizione finita)
{
    while (!finita())
        QTest::qWait(5);
}
