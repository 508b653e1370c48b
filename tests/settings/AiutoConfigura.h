#pragma once

// What the settings dialog's tests share: the menu's environment, the dialog
// opened as the menu opens it, clicks on its tabs and controls, and profile
// files written line by line.

#include "menu/AiutoMenu.h"

#include "platform/Controlli.h"
#include "platform/ControlliACapo.h"
#include "settings/FormConfigura.h"
#include "settings/RegistraSettings.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>

class AmbienteConfigura : public AmbienteMenu
{
public:
    AmbienteConfigura()
    {
        RegistraSchermiSettings();
        // The menu has set the language before the dialog can be opened.
        LinguaCorrente = QStringLiteral("Italiano");
    }

    // The dialog as the menu's item opens it: shown, and the menu unloaded.
    FormConfigura *ApriDalMenu()
    {
        FormMenu *m = MostraMenu();
        if (!m)
            return nullptr;
        m->mnuConfigurazioni->trigger();
        return Configura();
    }
    // The dialog alone, without a menu behind it.
    static FormConfigura *Apri()
    {
        Schermi::Mostra(QStringLiteral("FormConfigura"));
        return Configura();
    }
    static FormConfigura *Configura()
    {
        return qobject_cast<FormConfigura *>(Schermi::Riferimento(QStringLiteral("FormConfigura")));
    }

    static void Scheda(FormConfigura *f, int indice)
    {
        QTabBar *b = f->TabStrip1->tabBar();
        QTest::mouseClick(b, Qt::LeftButton, {}, b->tabRect(indice).center());
    }
    static void Clicca(QWidget *w) { QTest::mouseClick(w, Qt::LeftButton, {}, w->rect().center()); }
    static void ScegliNellaLista(FormConfigura *f, const QString &nome)
    {
        const auto trovati = f->ListModificaUtente->findItems(nome, Qt::MatchExactly);
        QVERIFY2(trovati.size() == 1, qPrintable(nome));
        // The list is one line high: the person scrolls to the name, then clicks it.
        f->ListModificaUtente->scrollToItem(trovati.first());
        QTest::mouseClick(f->ListModificaUtente->viewport(), Qt::LeftButton, {},
                          f->ListModificaUtente->visualItemRect(trovati.first()).center());
    }

    // Typed as a person types, also letters beyond ASCII.
    static void Scrivi(QWidget *w, const QString &testo)
    {
        for (QChar c : testo) {
            if (c.unicode() < 128) {
                QTest::keyClick(w, char(c.unicode()));
            } else {
                QTest::sendKeyEvent(QTest::Press, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
                QTest::sendKeyEvent(QTest::Release, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
            }
        }
    }
};

// A profile file from its lines, each ended by CR LF.
inline QByteArray Righe(std::initializer_list<const char *> righe)
{
    QByteArray b;
    for (const char *r : righe)
        b += QByteArray(r) + "\r\n";
    return b;
}

// The lines of the profile that the defaults give, with the import done.
inline QByteArray ProfiloPredefinitoImportato()
{
    return Righe({"Arial", "Arial", " 2 ", " 12 ", "-2147483640 ", " 16777215 ", "-2147483640 ", " 16777215 ",
                  " 65535 ", " 255 ", " 16777152 ", "True", "False", " 0 ", " 4 ", "False", "False", " 9 ", "False",
                  "False", "True"});
}
