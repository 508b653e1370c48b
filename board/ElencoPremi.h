#pragma once

#include <QString>
#include <QStringList>

// The reward films: the names of "*.swf" in the program's "\swf\" folder,
// kept in a list of 101 places. A store past the list fails and the failure,
// left pending, keeps every later name out; the count still counts it.
struct ElencoPremi {
    static constexpr int Posti = 101;
    QString Nomi[Posti];
    qint16 Conteggio = 0;
};

// Fills the list from a directory listing in the platform's order.
ElencoPremi CompilaElencoPremi(const QStringList &elenco);

// The listing of the reward folder: "*.swf" names, directories included.
QStringList ElencaFilmPremio();

// The path of the film drawn for this reward; empty when the draw falls on a
// place the list doesn't have, or the list is empty (the face stays empty).
QString FilmPremioEstratto(const ElencoPremi &elenco);
