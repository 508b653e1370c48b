#include "menu/ModuloNavigate.h"

#include "platform/Percorsi.h"

#include <QDesktopServices>
#include <QFileInfo>

namespace {
std::function<void(const QUrl &)> aperturaDiProva;
}

void ImpostaAperturaDocumenti(std::function<void(const QUrl &)> apri) { aperturaDiProva = std::move(apri); }

void ApriDocumento(QWidget *form, const QString &percorso)
{
    Q_UNUSED(form) // the platform finds the owner window itself
    const QString locale = PercorsoLocale(percorso);
    if (!QFileInfo(locale).isFile())
        return;
    const QUrl url = QUrl::fromLocalFile(locale);
    if (aperturaDiProva)
        aperturaDiProva(url);
    else
        QDesktopServices::openUrl(url);
}
