#pragma once

#include "platform/Schermi.h"

#include <QString>

#include <array>
#include <map>

class Etichetta;
class OpzioneGrafica;
class QAction;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QListWidget;
class QMenu;
class QMenuBar;
class QPushButton;
class QTimer;

// The hub of the game: kind of game, tiles, players, the set and the player's
// profile, and the two large buttons that start a game or end the program.
class FormMenu final : public Form
{
    Q_OBJECT
public:
    FormMenu();

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;

    // The controls, under their design names.
    QGroupBox *Frame1 = nullptr, *Frame2 = nullptr, *Frame3 = nullptr;
    std::map<int, OpzioneGrafica *> Option1, Option2, Option3;
    QListWidget *List2 = nullptr;
    QComboBox *Combo1 = nullptr;
    std::array<QPushButton *, 2> Command1{};
    QLabel *PictureGioca = nullptr, *ImageGioca = nullptr, *PictureEsci = nullptr, *ImageEsci = nullptr;
    Etichetta *LabelGioca = nullptr, *LabelEsci = nullptr;
    QFrame *FrameUscita = nullptr;
    QPushButton *CommandSi = nullptr, *CommandNo = nullptr;
    QLabel *PictureSi = nullptr, *ImageSi = nullptr, *PictureNo = nullptr, *ImageNo = nullptr;
    Etichetta *LabelSi = nullptr, *LabelNo = nullptr;
    QLabel *LabelDimensionaFont = nullptr;
    QTimer *Timer1 = nullptr;

    QMenuBar *BarraMenu = nullptr;
    QMenu *mnuCrea = nullptr, *mnuInformazioni = nullptr, *mnuLanguages = nullptr;
    QAction *mnugg = nullptr, *mnuSS = nullptr, *mnuPG = nullptr, *mnuPS = nullptr;
    QAction *mnuConfigurazioni = nullptr, *mnuDocumentazione = nullptr, *mnuAbout = nullptr;
    QList<QAction *> mnuLanguage;

    QString CartellaMemory;

    // The sizes that the last dressing found, step by step; for tests.
    struct {
        int etichette = 0, opzioniPrima = 0, opzioni = 0, cornici = 0;
    } MisureVestizione;

    // The form's handlers and operations, under the names the game gives them.
    void AggiornaFiles();
    void Option1_Click(int index);
    void Option2_Click(int index);
    void Option3_Click(int index);
    void List2_Click();
    void Combo1_Click();
    void Command1_Click(int index);
    void PresentaFinestraUscita();
    void BloccaMouse();
    void SbloccaMouse();
    void PortaMousePosizione();
    void CommandSi_Click();
    void CommandNo_Click();
    void Timer1_Timer();
    void MLSFillMenuLanguages();
    void mnuLanguage_Click(int index);
    void mnuDocumentazione_Click();
    void mnuAbout_Click();

    void Option_MouseMove(std::map<int, OpzioneGrafica *> &gruppo, int index);
    void Frame_MouseMove(std::map<int, OpzioneGrafica *> &gruppo);
    void Command1_MouseMove(int index);
    void Form_MouseMove();
    void CommandSiNo_MouseMove(bool si);
    void FrameUscita_MouseMove();

    // The caption of List2's selected line, "" when none: its old Text.
    QString TestoList2() const;

protected:
    void resizeEvent(QResizeEvent *e) override;

private:
    void creaControlli();
    void creaMenu();
    void creaFinestraUscita(QWidget *area);
    void dipingiGruppo(std::map<int, OpzioneGrafica *> &gruppo, int scelto);
    void maiuscoleCaption();
    void mostraSchermoEScarica(const QString &nome);

    QWidget *area = nullptr; // the client area below the menu bar
};

inline constexpr int ColoreOpzione = 16777215;       // white: not selected
inline constexpr int ColoreOpzioneScelta = 255;      // red: selected
inline constexpr int ColoreOpzioneSotto = 33023;     // orange: under the pointer
inline constexpr int ColorePulsante = 0xE0E0E0;      // light grey: large button at rest
inline constexpr int ColorePulsanteSotto = 255;      // red: large button under the pointer
inline constexpr int ColoreSfondoMenu = 0xC0FFFF;    // pale yellow, blue-green-red
