#include "platform/CursoreGioco.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>

static void caricaRisorsePiattaforma() { Q_INIT_RESOURCE(platform); }

QCursor CursoreGioco()
{
    static const QCursor cursore = [] {
        caricaRisorsePiattaforma();
        const QPixmap p = QIcon(QStringLiteral(":/platform/puntatore.svg")).pixmap(QSize(48, 48));
        return p.isNull() ? QCursor(Qt::ArrowCursor) : QCursor(p, 3, 2);
    }();
    return cursore;
}

QCursor CursoreScelto(bool sistema) { return sistema ? QCursor(Qt::ArrowCursor) : CursoreGioco(); }
