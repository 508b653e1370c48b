#pragma once

#include <QFont>
#include <QSize>
#include <QString>

#include <functional>

// Text is measured by font metrics where the menu once measured it with a
// hidden self-sizing label: the result is the label's size, in twips.
QSize MisuraTwips(const QFont &font, const QString &testo);

// The growth rule of the menu: from a start size, while the condition holds
// for the measured width and height (twips), one point more, and measure again.
int CresciFont(QFont font, const QString &testo, int daPunti,
               const std::function<bool(int larghezza, int altezza)> &condizione);
