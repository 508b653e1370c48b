#include "platform/MsgBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {
RispostaMsgBox rispostaDiProva;
std::function<QString()> parolaSi, parolaNo;
} // namespace

void ImpostaParoleSiNo(std::function<QString()> si, std::function<QString()> no)
{
    parolaSi = std::move(si);
    parolaNo = std::move(no);
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
        const QString si = parolaSi ? parolaSi() : QString();
        const QString no = parolaNo ? parolaNo() : QString();
        if (!si.isEmpty())
            box.button(QMessageBox::Yes)->setText(si);
        if (!no.isEmpty())
            box.button(QMessageBox::No)->setText(no);
        return box.exec() == QMessageBox::Yes ? Msg::vbYes : Msg::vbNo;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return Msg::vbOK;
}
