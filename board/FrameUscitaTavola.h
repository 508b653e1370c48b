#pragma once

#include "board/FinestraUscita.h"

#include <QFrame>
#include <QPushButton>

#include <functional>

class Etichetta;
class QLabel;

// A graphical button that reports pointer moves, as the old ones did.
class PulsanteGrafico final : public QPushButton
{
    Q_OBJECT
public:
    explicit PulsanteGrafico(QWidget *parent);
    void ImpostaColore(double colore);
    double Colore() const { return colore; }

signals:
    void MouseMove();

protected:
    void mouseMoveEvent(QMouseEvent *e) override;

private:
    double colore = FinestraUscita::ColoreRiposo;
};

// The exit question of a board: two large picture buttons, the pointer kept
// inside while it stands.
class FrameUscitaTavola final : public QFrame
{
    Q_OBJECT
public:
    explicit FrameUscitaTavola(QWidget *form);

    PulsanteGrafico *CommandNo = nullptr;
    PulsanteGrafico *CommandSi = nullptr;
    Etichetta *PictureNo = nullptr;
    Etichetta *PictureSi = nullptr;
    Etichetta *ImageNo = nullptr;
    Etichetta *ImageSi = nullptr;
    Etichetta *LabelNo = nullptr;
    Etichetta *LabelSi = nullptr;
    QLabel *LabelDimensionaFont = nullptr; // lives on the form

    FinestraUscita::Colori colori;

    // Builds and shows the box (PresentaFinestraUscita).
    void PresentaFinestraUscita(bool puntatoreSistema, double coloreForm);
    void BloccaMouse();
    void PortaMousePosizione();
    static void SbloccaMouse();

    std::function<void()> Si;
    std::function<void()> No;

protected:
    void mouseMoveEvent(QMouseEvent *e) override;

private:
    void mostraColori();
    double adatta(double partenza, double larghezzaTwips, double altezzaTwips);
    void etichetteAltezzaFaccia();
};
