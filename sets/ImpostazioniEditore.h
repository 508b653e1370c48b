#pragma once

#include <QRect>
#include <QString>

#include <vector>

// The four set editors are one editor with a few deliberate differences; each
// editor is this table plus the routines that read it.

enum class TipoLato { Film, Parola, Immagine };

enum class TipoControllo {
    Etichetta,      // label
    Barra,          // horizontal scroll bar
    Pulsante,       // command button
    Filmato,        // film player
    Casella,        // check box
    Testo,          // text box
    Immagine,       // image box, stretching, with a border
    Cornice,        // frame
    ElencoUnita,    // drive list
    ElencoCartelle, // folder list
    ElencoFile,     // file list (hidden)
    Miniature,      // list view of thumbnails
    ImmagineNascosta,
    Avanzamento,    // progress bar
};

struct ControlloEditore {
    QString Nome;
    TipoControllo Tipo;
    QString Caption;
    QRect Rettangolo; // design rectangle in twips: left, top, width, height
    bool DentroFrame1 = false;
};

struct ChiaviEditore {
    QString MenoDiDodici, Svuota, CaptionCopia, NienteFilm, NienteSet, NomeSottocartella, EsisteInSuoni,
        EsisteInMedia, PrimaDelPercorso, Label1Inizio, TraINumeri, NienteImmagine1, NienteImmagine2, Esci;
};

struct ImpostazioniEditore {
    QString Nome;          // FormSS, FormPS, Formgg, Formpg
    QString Estensione;    // ass, aps, agg, apg
    QString Cartella;      // the default folder of the kind, under the data root: ii\ or pi\ .
    QString CartellaMedia; // where copies of films or images go: swf\ or gif\ .
    QString SchemaMedia;   // *.swf or *.gif
    TipoLato Lato1 = TipoLato::Film;
    TipoLato Lato2 = TipoLato::Film;
    bool HaCheck1 = false;
    ChiaviEditore Chiavi;
    std::vector<ControlloEditore> Controlli;

    bool HaParola() const { return Lato1 == TipoLato::Parola; }
    bool HaImmagini() const { return Lato2 == TipoLato::Immagine; }
    bool HaFilm() const { return Lato2 == TipoLato::Film; }
    // The default folder, as the game writes it.
    QString CartellaPredefinita() const;
    const ControlloEditore *Controllo(const QString &nome) const;
};

// The editors' inner size at design, in twips: the picker panel's size.
inline constexpr int LarghezzaEditore = 9855;
inline constexpr int AltezzaEditore = 7455;

const ImpostazioniEditore &EditoreSS();
const ImpostazioniEditore &EditorePS();
const ImpostazioniEditore &Editoregg();
const ImpostazioniEditore &Editorepg();
const ImpostazioniEditore *EditoreDiNome(const QString &nome);
