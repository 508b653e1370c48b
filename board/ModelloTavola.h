#pragma once

#include <QString>

// What the old board kept in its controls, kept here with the same names and
// values; the widgets only show it. Geometry in twips, colours as numbers.

struct Copertura { // one FramePosto
    QString Tag;
    bool Visible = false;
    bool Enabled = true;
    double BackColor = 0;
    bool PuntatorePersonalizzato = false;
    qint16 Left = 0, Top = 0, Width = 0, Height = 0;
};

// One side of one pair: the holder of its face (film, word frame or still
// image) and, on image boards, the animated image that takes over when the
// pair is found.
struct Faccia {
    bool Visible = false;
    qint16 Left = 0, Top = 0, Width = 0, Height = 0;
    QString File;              // Movie of a film, picture of an image
    bool InRiproduzione = false; // a film: false rests on its first picture
    int Caricamenti = 0;       // grows at each load, so that a view reloads

    // Words (FrameTessera1 and LabelParola1).
    QString Caption;
    double DimensioneFont = 12;
    bool AutoSize = true;
    qint16 EtichettaLeft = 0, EtichettaTop = 0, EtichettaWidth = 0, EtichettaHeight = 0;

    // The animated image (TMaxAni): hidden and unloaded until its pair is found.
    QString TagAnimata;
    QString FileAnimata;
    bool AnimataVisible = false;
    bool AnimataAvviata = false;
};

struct Forma { // a rectangle shape without fill
    bool Visible = false;
    qint16 Left = 0, Top = 0, Width = 0, Height = 0;
    qint16 BorderWidth = 1;
    double BorderColor = 0;
};

struct Pannello {
    bool Visible = false;
    QString Text;
    bool Immagine = false; // the marker of the player on turn
};
