#pragma once

#include <QPushButton>

#include <functional>

class QWidget;

// What the menu's controls share: a background colour kept as the game's
// colour number, written only when it changes, so that moving the pointer
// does not make the screen flicker.
int ColoreSfondoDi(const QWidget *w);
bool ScriviColoreSfondo(QWidget *w, int colore); // false when it was that colour already
int ScrittureColore(); // how many colours were really written; for tests

// The handlers the old controls had for the pointer's moves and clicks, for
// any widget: the move stops at the control, it does not reach the surface
// behind it.
void SuMovimento(QWidget *w, std::function<void()> gestore);
void SuClick(QWidget *w, std::function<void()> gestore);

// An option of the graphical kind: it looks like a button and tells its state
// by its colour. Setting it on runs its click, as a click by hand does.
class OpzioneGrafica final : public QPushButton
{
    Q_OBJECT
public:
    explicit OpzioneGrafica(const QString &caption, QWidget *parent);

    bool Valore() const { return valore; }
    void ImpostaValore(bool v);
    // The other members of its group, which it turns off when set on.
    QList<OpzioneGrafica *> gruppo;

signals:
    void Click();

private:
    void segnalaStato(); // tells a screen reader that it is on or off
    bool valore = false;
};

// A control's font at a size in points, the rest of the font kept.
void ImpostaPunti(QWidget *w, int punti);
