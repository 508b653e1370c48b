#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>

class QWidget;

// The game's common dialogs: open and save a file, pick a colour, pick a
// font. One place for the whole game; every screen that asks a person for a
// file, a colour or a font comes here, and tests answer all of them through
// the one seam at the end of this header.
//
// The real dialogs are Qt's own (non-native) QFileDialog, QColorDialog and
// QFontDialog, so they look and behave the same on every platform.

// ---------------------------------------------------------------------------
// Files

// The file title (name and extension, no folder) left by the last ScegliFile,
// followed by NUL characters up to 255 characters in all; 255 NULs after a
// cancel. It is never cut: callers put it straight behind a folder, and the
// NULs travel with the path (every path function of the game stops at the
// first NUL). Empty until the first ScegliFile.
inline QString NomeFileScelto;
inline constexpr int LunghezzaTitoloFile = 255;

// Asks for a file and returns its full local path, or "" on cancel.
//  proprietario  the window the dialog belongs to (may be null)
//  modo          1 the open dialog; any other value (in use: 2) the save dialog
//  titolo        the dialog's title ("Open", "Salva")
//  nomeIniziale  what the name box holds at first ("", "*.swf"); a pattern
//                there acts as a filter
//  filtro        label and pattern pairs, each item ended by a NUL:
//                QStringLiteral("Tutti i files\0*.*\0") -- see FiltroFile
//                below; a label may be empty; several patterns in one item
//                are separated by ';'. The first pair is in force (index 1).
//  cartella      the folder the dialog opens on; a game path
//                ("C:\ImpostazioniProgrammiLorea\tesselo\dati\ii\") opens
//                on the mapped local folder; "" the current folder
//  estensione    the default extension without its dot ("swf"): added when
//                the person types a name with no extension of its own
// The open dialog takes only a file that exists; the save dialog asks before
// it replaces one. A path longer than 254 characters does not fit the
// dialog's buffer of 255 and comes back as a cancel; one of 251 to 254
// characters comes back cut to the 250 characters of the name buffer.
QString ScegliFile(QWidget *proprietario, qint16 modo, const QString &titolo, const QString &nomeIniziale,
                   const QString &filtro, const QString &cartella, const QString &estensione);

inline constexpr qint16 ModoApri = 1;
inline constexpr qint16 ModoSalva = 2;
inline constexpr int LunghezzaNomeFile = 250;    // what the name buffer really holds
inline constexpr int LunghezzaMassimaFile = 255; // what the dialog is told it holds

// A filter string from label/pattern pairs: FiltroFile({"", "*.agg", "Tutti i files", "*.*"})
// gives "\0*.agg\0Tutti i files\0*.*\0".
QString FiltroFile(const QStringList &voci);

// ---------------------------------------------------------------------------
// Colours

// Asks for a colour for `controllo` (a control whose text colour, ForeColor,
// stands for the colour being chosen). On OK the control's ForeColor becomes
// the colour and the result is true; on cancel nothing changes and the result
// is false. The dialog never opens on the colour in force (it opens on black),
// and the custom colours a person made are forgotten by the next opening.
// The caller reads the colour back with ForeColorDi (platform/Controlli.h).
bool ScegliColore(QWidget *proprietario, QWidget *controllo);

// ---------------------------------------------------------------------------
// Fonts

// Asks for a font for `controllo`. The dialog starts from the control's bold,
// italic and underline and is given no face (Qt's dialog then shows its
// default family, never the control's); the owner is ignored, as it always
// was, so the dialog has no parent window.
// On OK the control's font takes only the face name, the size rounded to a
// whole point (a half goes to the even number: 10.5 gives 10), bold (weight
// 700 or more), italic and underline; the result is true. On cancel nothing
// changes and the result is false.
bool ScegliFont(QWidget *proprietario, QWidget *controllo);

// The text of bytes up to the first zero byte, or all of them if there is
// none, read as the game reads its text files (UTF-8 when valid and not plain
// ASCII, else Windows-1252).
QString TestoDaByte(const QByteArray &byte);

// ---------------------------------------------------------------------------
// The seam: tests answer every dialog here, and nothing waits for a person.

enum class TipoDialogo { File, Colore, Font };

// What a dialog was asked to show.
struct RichiestaDialogo {
    TipoDialogo tipo = TipoDialogo::File;

    // File dialogs: the arguments as given, and what they became.
    qint16 modo = 0;
    QString titolo;
    QString nomeIniziale;
    QStringList filtro;          // the items between the NULs: label, pattern, label, pattern...
    int indiceFiltro = 1;        // the pair in force, counted from 1
    QString cartella;            // as the caller gave it
    QString cartellaLocale;      // the local folder the dialog opens on ("" the current folder)
    QString estensione;
    QStringList rifiutati;       // names this opening has already refused, in order

    // Colour dialogs: what the dialog opens on.
    double coloreIniziale = 0;
    std::array<double, 16> coloriPersonalizzati{};

    // Font dialogs: what the dialog starts from.
    bool grassetto = false, corsivo = false, sottolineato = false;
    int decimiPunto = 0;         // the control's size times 10
    QString volto;               // the face the dialog opens on: always empty
};

// What the person did.
struct RispostaDialogo {
    bool confermato = false;

    // File: the name typed or picked, absolute or relative to the folder the
    // dialog opened on. In the open dialog a file that does not exist is
    // refused, and the save dialog refused when the person does not want an
    // existing file replaced: either way the dialog stays open and the seam is
    // asked again, with the refused name in `rifiutati`. After 20 refusals the
    // dialog counts as cancelled, so a test cannot loop.
    QString nome;
    bool sostituisci = true;

    // Colour: the colour chosen, and the custom colours left in the dialog.
    double colore = 0;
    std::array<double, 16> coloriPersonalizzati{};

    // Font: what the dialog gives back.
    QString volto;
    int decimiPunto = 0;         // 105 is 10.5 points
    bool grassetto = false, corsivo = false, sottolineato = false, barrato = false;

    static RispostaDialogo Annulla() { return {}; }
    static RispostaDialogo File(const QString &nome, bool sostituisci = true)
    {
        RispostaDialogo r;
        r.confermato = true;
        r.nome = nome;
        r.sostituisci = sostituisci;
        return r;
    }
    static RispostaDialogo Colore(double colore)
    {
        RispostaDialogo r;
        r.confermato = true;
        r.colore = colore;
        return r;
    }
    static RispostaDialogo Font(const QString &volto, int decimiPunto, bool grassetto = false, bool corsivo = false,
                                bool sottolineato = false)
    {
        RispostaDialogo r;
        r.confermato = true;
        r.volto = volto;
        r.decimiPunto = decimiPunto;
        r.grassetto = grassetto;
        r.corsivo = corsivo;
        r.sottolineato = sottolineato;
        return r;
    }
};

using RispondiDialogo = std::function<RispostaDialogo(const RichiestaDialogo &)>;

// Every dialog goes to this function instead of a person; an empty function
// goes back to the real dialogs. tests/AmbienteProva.h sets one that records
// each request and answers from a queue (cancel when the queue is empty).
void ImpostaRispostaDialoghi(RispondiDialogo risposta);

// For tests of the real dialogs: called with each real dialog just before it
// runs its loop, so a test can act on it from inside that loop.
void ImpostaOsservatoreDialoghi(std::function<void(QWidget *dialogo)> osservatore);
