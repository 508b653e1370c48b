#include "platform/CursoreGioco.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>

QCursor CursoreGioco()
{
    static const QCursor cursore = [] {
        const QPixmap p = QIcon(QStringLiteral(":/platform/puntatore.svg")).pixmap(QSize(48, 48));
        return p.isNull() ? QCursor(Qt::ArrowCursor) : QCursor(p, 3, 2);
    }();
    return cursore;
}

QCursor CursoreScelto(bool sistema) { return sistema ? QCursor(Qt::ArrowCursor) : CursoreGioco(); }
