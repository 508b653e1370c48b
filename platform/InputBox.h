#pragma once

#include <QString>

#include <functional>

// The game's prompt box: a question, a line to type in, OK and Cancel. It
// gives what was typed, or "" when the box was cancelled, as the old prompt
// did. The title is the game's.
QString InputBox(const QString &domanda, const QString &titolo = QString());

// What a prompt was asked: tests answer prompts through this seam.
struct RichiestaInputBox {
    QString domanda;
    QString titolo;
};
using RispostaInputBox = std::function<QString(const RichiestaInputBox &)>;
void ImpostaRispostaInputBox(RispostaInputBox risposta); // an empty function goes back to real boxes
