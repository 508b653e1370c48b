#pragma once

#include "platform/Schermi.h"

#include <array>

class CasellaACapo;
class FormaRettangolo;
class OpzioneACapo;
class QAction;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenuBar;
class QPushButton;
class QScrollBar;
class QTabWidget;

// The one place where a player's profile is changed: which player is
// current, and that player's colours, fonts, sounds and input mode. Every
// control writes its profile field the moment it is used; the profile
// reaches the disk only at the three saving moments (a click of OptionUtente,
// a click in ListModificaUtente, mnuEsci). No Apply, no Cancel, no question.
class FormConfigura final : public Form
{
    Q_OBJECT
public:
    FormConfigura();

    void Form_Load() override;
    void Form_Activate() override;

    // The controls, under their design names.
    QMenuBar *BarraMenu = nullptr;
    QAction *mnuEsci = nullptr;
    QLabel *Label4 = nullptr;
    QTabWidget *TabStrip1 = nullptr;
    QFrame *FrameUtente = nullptr, *FrameParole = nullptr;
    // A plain frame: other input settings may add their own buttons to it.
    QFrame *FramePunt = nullptr;

    std::array<OpzioneACapo *, 3> OptionUtente{};
    QListWidget *ListModificaUtente = nullptr;
    QLineEdit *TextNuovoUtente = nullptr;

    std::array<QGroupBox *, 2> Frame1{};
    std::array<QFrame *, 2> PictureSfondoParola{};
    QLabel *LabelFontSelezionato1 = nullptr, *LabelFontSelezionato2 = nullptr;
    QPushButton *CommandSceltaSfondoTesto1 = nullptr, *CommandSceltaSfondoTesto2 = nullptr;
    QPushButton *CommandSceltaFont1 = nullptr, *CommandSceltaFont2 = nullptr;
    QPushButton *CommandSceltaColoreFont1 = nullptr, *CommandSceltaColoreFont2 = nullptr;
    std::array<OpzioneACapo *, 2> optMaiuscolo1{}, optMaiuscolo2{};
    QLabel *Label1 = nullptr, *Label2 = nullptr;
    QFrame *PicturePosto = nullptr;
    QPushButton *CommandSceltaColoreTessere = nullptr, *Command1 = nullptr;
    CasellaACapo *CheckSuoni = nullptr;

    std::array<OpzioneACapo *, 4> Option4{};
    CasellaACapo *CheckDisabilitaMousePersonalizzato = nullptr, *CheckRiparti = nullptr, *CheckRiquadro = nullptr;
    QScrollBar *HScroll3 = nullptr, *HScrollRiquadro = nullptr;
    QLabel *Label7 = nullptr;
    FormaRettangolo *ShapeRiquadro = nullptr;
    QPushButton *CommandScansione = nullptr;
    // Opens the player's switch settings (FormAccesso).
    QPushButton *CommandAccesso = nullptr;

    QLabel *LabelDimensionaFont = nullptr, *LabelPerColore = nullptr;

    // The form's routines and handlers, under the names the game gives them.
    void ImpostaConfigurazioni();
    void NascondiFrame();
    void TabStrip1_Click();
    void OptionUtente_Click(int index);
    void ListModificaUtente_Click();
    void TextNuovoUtente_Change();
    void mnuEsci_Click();

    void CommandSceltaSfondoTesto1_Click();
    void CommandSceltaSfondoTesto2_Click();
    void CommandSceltaFont1_Click();
    void CommandSceltaFont2_Click();
    void CommandSceltaColoreFont1_Click();
    void CommandSceltaColoreFont2_Click();
    void optMaiuscolo1_Click(int index);
    void optMaiuscolo2_Click(int index);
    void CommandSceltaColoreTessere_Click();
    void Command1_Click();
    void CheckSuoni_Click();

    void Option4_Click(int index);
    void CheckDisabilitaMousePersonalizzato_Click();
    void CheckRiparti_Click();
    void CheckRiquadro_Click();
    void HScroll3_Change();
    void HScrollRiquadro_Change();
    void CommandScansione_Click();
    void CommandAccesso_Click();

    // For tests: the runs of ImpostaConfigurazioni so far, and the deepest
    // nesting one of them reached (1 when none ran inside another).
    int EsecuzioniImpostaConfigurazioni = 0;
    int AnnidamentoMassimo = 0;

protected:
    void resizeEvent(QResizeEvent *e) override;

private:
    void creaUtente();
    void creaParole();
    void creaPunt();
    void sceltaSfondoTesto(int parola);
    void sceltaFont(int parola);
    void sceltaColoreFont(int parola);
    void campioneParola(int parola);

    QWidget *area = nullptr; // the client area below the menu bar
    int annidamento = 0;
};
