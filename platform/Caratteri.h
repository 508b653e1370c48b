#pragma once

#include <QFont>
#include <QString>

// Fonts are asked for by the names the game was designed with ("Arial",
// "Comic Sans MS"); where the platform lacks them, a free font of the same
// measure stands in, with its own bold and italic faces.
QFont FontGioco(const QString &nome, double punti, bool grassetto = false);

// Sets the family of a font that may hold one of those names.
void ImpostaFamiglia(QFont &font, const QString &nome);
