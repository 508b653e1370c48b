#include "app/Avvio.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("coppie-vivaci"));
    QApplication::setApplicationDisplayName(QStringLiteral("Coppie vivaci"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/app/coppie-vivaci.svg")));
    QApplication::setQuitOnLastWindowClosed(false);
    RegistraSchermi();
    if (!AvvioProgramma())
        return 0;
    return app.exec();
}
