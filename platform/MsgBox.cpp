#include "platform/MsgBox.h"

#include <QApplication>
#include <QMessageBox>

namespace {
RispostaMsgBox rispostaDiProva;
}

void ImpostaRispostaMsgBox(RispostaMsgBox risposta) { rispostaDiProva = std::move(risposta); }

int MsgBox(const QString &testo, int stile, const QString &titolo)
{
    const RichiestaMsgBox richiesta{testo, stile, titolo.isEmpty() ? TitoloGioco : titolo};
    if (rispostaDiProva)
        return rispostaDiProva(richiesta);

    QMessageBox box;
    box.setWindowTitle(richiesta.titolo);
    box.setText(testo);
    switch (stile & 0x70) {
    case Msg::vbCritical: box.setIcon(QMessageBox::Critical); break;
    case Msg::vbQuestion: box.setIcon(QMessageBox::Question); break;
    case Msg::vbExclamation: box.setIcon(QMessageBox::Warning); break;
    case Msg::vbInformation: box.setIcon(QMessageBox::Information); break;
    default: box.setIcon(QMessageBox::NoIcon); break;
    }
    if ((stile & 0x7) == Msg::vbYesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        return box.exec() == QMessageBox::Yes ? Msg::vbYes : Msg::vbNo;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return Msg::vbOK;
}
