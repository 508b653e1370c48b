#pragma once

#include "platform/FiltroPressioni.h"
#include "platform/Schermi.h"

#include <QTimer>
#include <QWidget>

#include <array>
#include <memory>

class CasellaACapo;
class OpzioneACapo;
class QAction;
class QGroupBox;
class QLabel;
class QListWidget;
class QMenuBar;
class QPushButton;
class QScrollBar;
class SorgenteJoystick;

// Where the switch is tried: it takes the presses of the chosen switches, and
// the keys when two are being chosen.
class PictureProvaWidget final : public QWidget
{
    Q_OBJECT
public:
    explicit PictureProvaWidget(QWidget *parent);
    // The look of the last press: 0 none, 1 counted, 2 filtered, 3 held and waiting.
    int Stato = 0;
    QString Testo;
signals:
    void Tasto(int tasto, bool premuto, bool ripetizione);
    void Mouse(Qt::MouseButton pulsante, bool premuto);

protected:
    void paintEvent(QPaintEvent *e) override;
    void keyPressEvent(QKeyEvent *e) override;
    void keyReleaseEvent(QKeyEvent *e) override;
    void mousePressEvent(QMouseEvent *e) override;
    void mouseReleaseEvent(QMouseEvent *e) override;
    void mouseDoubleClickEvent(QMouseEvent *e) override;
};

// The current player's switch settings, opened from the input tab of the
// settings dialog. Each control writes its setting the moment it is used; the
// settings dialog saves them with the profile. The try area shows each press
// of the switch as counted or filtered, with the times as they stand, so the
// times can be tuned with the player at hand.
class FormAccesso final : public Form
{
    Q_OBJECT
public:
    FormAccesso();
    ~FormAccesso() override;

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;

    QMenuBar *BarraMenu = nullptr;
    QAction *mnuEsci = nullptr;
    QLabel *LabelTitolo = nullptr;
    QLabel *LabelAccettazione = nullptr, *LabelIgnora = nullptr, *LabelPausa = nullptr;
    QScrollBar *HScrollAccettazione = nullptr, *HScrollIgnora = nullptr, *HScrollPausa = nullptr;
    CasellaACapo *CheckSuonoPasso = nullptr, *CheckSuonoTessera = nullptr;
    QGroupBox *FrameInterruttori = nullptr;
    std::array<OpzioneACapo *, 4> OptionInterruttori{};
    QPushButton *CommandScegliTasti = nullptr;
    QLabel *LabelTasti = nullptr;
    QGroupBox *FrameProva = nullptr;
    QLabel *LabelProva = nullptr;
    PictureProvaWidget *PictureProva = nullptr;
    QLabel *LabelConteggio = nullptr;
    QListWidget *ListProva = nullptr;
    QTimer TimerProva; // the moment a held press has been held long enough

    // Brings every control into line with the settings.
    void ImpostaControlli();
    void mnuEsci_Click();
    // The switch tried: a press or a release of switch 0 or 1.
    void Prova(int interruttore, bool premuto, bool ripetizione = false);
    // Which of the two chosen keys is awaited: 0 none, 1 the first, 2 the second.
    int TastoAtteso() const { return tastoAtteso; }
    int Contate() const { return contate; }
    int Filtrate() const { return filtrate; }

    // The step of the bars of time, in milliseconds.
    static constexpr int PassoMs = 50;

protected:
    void resizeEvent(QResizeEvent *e) override;

private:
    void crea();
    void scriviEtichette();
    void esito(int interruttore, FiltroPressioni::Esito e);
    void attendi();
    void tasto(int tasto, bool premuto, bool ripetizione);
    void preparaJoystick();
    QString voce(const char *chiave, const char *italiano) const;

    QWidget *area = nullptr;
    FiltroPressioni filtro;
    std::unique_ptr<SorgenteJoystick> joystick;
    int tastoAtteso = 0;
    int primoScelto = 0;
    int contate = 0, filtrate = 0;
    bool ripetizioneDetta[FiltroPressioni::Interruttori] = {false, false};
    bool allineando = false;
};
