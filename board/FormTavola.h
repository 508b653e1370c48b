#pragma once

#include "board/InterruttoriTavola.h"
#include "board/Tavola.h"
#include "platform/Controlli.h"
#include "platform/Schermi.h"

#include <QTimer>

#include <memory>

class Etichetta;
class Filmato;
class FrameUscitaTavola;
class ImmagineAnimata;
class QAction;
class QFrame;
class QLabel;
class QMenuBar;
class SorgenteJoystick;
class SegnalatoreTavola;

// The holder of the keyboard focus, whose key event gets every key.
class PictureScansioneWidget final : public QWidget
{
public:
    explicit PictureScansioneWidget(QWidget *parent);
};

// One board: the widgets that show the rules of Tavola and forward input to
// them. The five boards are this form with their own settings.
class FormTavola final : public Form, public VistaTavola
{
    Q_OBJECT
public:
    explicit FormTavola(const ImpostazioniTavola &impostazioni);
    ~FormTavola() override;

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_Unload() override;

    // VistaTavola
    void Aggiorna() override;
    void Attendi(double secondi) override;
    void MostraPremio() override;

    Tavola &Partita() { return *tavola; }
    // The player's switches in the scanning modes; tests drive Timer1 and
    // the presses through it too.
    InterruttoriTavola &Interruttori() { return *interruttori; }
    // A switch goes down or up (0 for Space's part, 1 for Enter's), at the
    // moment MomentoIngresso gives: the mouse buttons, the joystick and the
    // chosen keys all come in here.
    void Interruttore(int numero, bool premuto, bool ripetizione = false);

    QMenuBar *BarraMenu = nullptr;
    QAction *mnuAvvia = nullptr;
    QAction *mnuEsci = nullptr;
    Etichetta *FramePosto[24] = {};
    Filmato *Film1[12] = {};   // ShockwaveFlash1
    Filmato *Film2[12] = {};   // ShockwaveFlash2
    QFrame *FrameTessera1[12] = {};
    QLabel *LabelParola1[12] = {};
    QLabel *Image1[12] = {};
    QLabel *Image2[12] = {};
    ImmagineAnimata *Animata1[12] = {}; // the animated image of side 1 (TMaxAni1)
    ImmagineAnimata *Animata2[12] = {}; // and of side 2
    QWidget *StatusBar1 = nullptr;
    QLabel *Pannello[3] = {};
    QLabel *MarcaPannello[3] = {};
    QLabel *Picture1 = nullptr;
    PictureScansioneWidget *PictureScansione = nullptr;
    FormaRettangolo *ShapeRiquadro = nullptr;
    FormaRettangolo *Shape1 = nullptr;
    FrameUscitaTavola *FrameUscita = nullptr;
    QTimer Timer1;
    QTimer Timer2;
    // Wakes at the moment a held switch has been held long enough.
    QTimer TimerInterruttori;

    void mnuEsci_Click();

protected:
    bool eventFilter(QObject *o, QEvent *e) override;
    bool event(QEvent *e) override;

private:
    void creaFacce();
    void sincronizzaFaccia(int lato, int i);
    void metti(QWidget *w, double left, double top, double width, double height);
    void rispondiSi();
    void rispondiNo();
    void eliminaSeRimandato();
    int alto() const;
    bool consegnaTasto(int &codice, bool ancheSenzaFuoco);
    bool tastoInterruttore(QEvent *e);
    bool mouseInterruttore(QEvent *e);
    void attendiInterruttori();
    void preparaInterruttori();

    std::unique_ptr<Tavola> tavola;
    std::unique_ptr<InterruttoriTavola> interruttori;
    std::unique_ptr<SorgenteJoystick> joystick;
    std::unique_ptr<SegnalatoreTavola> segnalatore; // what a screen reader is told
    int caricamentiMostrati[2][12] = {};
    QString immagineMostrata[2][12];
    int atteseInCorso = 0;
    bool scaricato = false;
    bool eliminazioneRimandata = false;
    bool filtroTasti = false;
};
