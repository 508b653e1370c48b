#include "platform/InputBox.h"

#include "platform/MsgBox.h"

#include <QInputDialog>

namespace {
RispostaInputBox rispostaDiProva;
}

void ImpostaRispostaInputBox(RispostaInputBox risposta) { rispostaDiProva = std::move(risposta); }

QString InputBox(const QString &domanda, const QString &titolo)
{
    const RichiestaInputBox richiesta{domanda, titolo.isEmpty() ? TitoloGioco : titolo};
    if (rispostaDiProva)
        return rispostaDiProva(richiesta);
    QInputDialog box;
    box.setWindowTitle(richiesta.titolo);
    box.setLabelText(domanda);
    box.setInputMode(QInputDialog::TextInput);
    if (box.exec() != QDialog::Accepted)
        return QString();
    return box.textValue();
}
