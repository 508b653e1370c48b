#pragma once

#include "sets/ElencoCoppie.h"
#include "sets/ImpostazioniEditore.h"

#include <QImage>
#include <QString>

#include <functional>
#include <map>
#include <memory>

class QWidget;
class Sfogliatore;

// What the old editors kept in their controls, kept here under the same names;
// the widgets only show it.
struct StatoControllo {
    bool Visible = true;
    bool Enabled = true;
    QString Caption;
};

// A film player: the file it holds, shown or hidden, playing or resting.
struct StatoFilm {
    QString Movie;
    bool Visible = true;
    bool InRiproduzione = false;
    int Caricamenti = 0;   // grows at each Movie, so that a view reloads
    int Riavvolgimenti = 0; // grows at each StopPlay
};

// An image box: the picture it holds, made from a file.
struct StatoFigura {
    QString File;  // where the picture came from; "" when empty
    QImage Picture;
    int Caricamenti = 0;
};

// The old horizontal scroll bar: a value kept between Min and Max, and a
// Change each time the value moves, by the user or by code.
struct StatoBarra {
    int Min = 0, Max = 32767, Value = 0;
};

class VistaEditore
{
public:
    virtual ~VistaEditore() = default;
    virtual void Aggiorna() {}
};

// One editor: its fields and handlers, free of widgets. The four editors
// are this class with their table of differences.
class Editore
{
public:
    Editore(const ImpostazioniEditore &impostazioni, VistaEditore *vista = nullptr);
    ~Editore();

    const ImpostazioniEditore &Imp;

    ElencoCoppie Elenco; // ElencoCoppie
    qint16 CoppiaCorrente = 0;
    qint16 CoppiaMassima = 0;
    QString Sottocartella;
    qint16 LatoInserimento = 0;
    QString FileScelto;
    bool MiniatureCaricate = false;

    // The controls.
    std::map<QString, StatoControllo> Controlli;
    StatoControllo &C(const QString &nome) { return Controlli[nome]; }
    const StatoControllo &C(const QString &nome) const { return Controlli.at(nome); }
    StatoBarra HScroll1;
    bool Check1 = false, CheckCopiaFile = false, CheckAnteprima = false;
    QString Text1;
    StatoFilm ShockwaveFlash[4]; // 1 and 2 the previews, 3 the picker's
    StatoFigura Image[3];        // Image1 and Image2
    bool Frame1AllOrigine = false; // moved to Left 0, Top 0 by the handlers
    Sfogliatore *Miniature() const { return sfogliatore.get(); }

    // The window the dialogs belong to.
    QWidget *Proprietario = nullptr;
    // Where the set was read from, when it was: for the message of a picture
    // that ends the program.
    QString FileAperto;

    // Entries from the screen.
    void Form_Load();
    void Form_Activate();
    void HScroll1_Scorri(int valore); // the user moved the bar
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void CommandSuono1_Click() { commandSuono(1); }
    void CommandSuono2_Click() { commandSuono(2); }
    void Check1_Click(bool valore);
    void CheckCopiaFile_Click(bool valore);
    void CheckAnteprima_Click(bool valore) { CheckAnteprima = valore; }
    void CommandSottocartella_Click();
    void Command2_Click();
    void CommandModificaLista_Click();
    void Command1_Click();
    bool mnuEsci_Click(); // true when the user answered Yes: the screen goes back to the menu
    void Text1_Scrivi(const QString &testo); // typed in the word box
    void Image_Click(int lato);
    void ListView1_Click(const QString &percorso);
    void CommandChiudiMiniature_Click(); // Command3 in the browser

    // Routines.
    void Riempi1();
    void Riempi2();
    void RiempiMiniature(); // the change of Dir1

    // The scroll bar as code sets it; a move fires HScroll1_Change.
    void ImpostaMax(int max);
    void ImpostaMin(int min);
    void ImpostaValore(int valore);

    // The data root's path for a copy: root, media folder, sub-folder, name.
    QString Destinazione(const QString &cartellaMedia, const QString &nome) const;

private:
    void HScroll1_Change();
    void Text1_Change();
    void impostaText1(const QString &testo);
    void commandSuono(int lato);
    void caricaFigura(int lato, const QString &file, bool protetto, const QString &passo);
    void filmMovie(int k, const QString &movie);
    QString &campo(int riga, int colonna, const QString &passo);
    bool rigaC() const { return ElencoCoppie::RigaEsiste(HScroll1.Value); }
    [[noreturn]] void fuoriTabella(const QString &passo) const;
    void aggiorna();
    QString testoEtichetta2() const;

    VistaEditore *vista;
    std::unique_ptr<Sfogliatore> sfogliatore;
};

// A path shown to a person: the local path, up to its first NUL.
QString PercorsoDaMostrare(const QString &percorso);
