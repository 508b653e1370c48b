// The four editors through their screens: a set of twelve pairs made with
// the mouse and the keyboard, its media picked through the dialogs, saved,
// compared byte for byte with what it must be, listed by the menu and played
// on its board to the reward; a ready-made set opened and saved again.

#include "menu/AiutoMenu.h"
#include "AttendiLavoro.h"

#include "board/FormPremio.h"
#include "board/FormTavola.h"
#include "board/FrameUscitaTavola.h"
#include "board/RegistraBoard.h"
#include "platform/CommDlgs.h"
#include "platform/InputBox.h"
#include "platform/media/Filmato.h"
#include "sets/FormEditore.h"
#include "sets/RegistraSets.h"
#include "sets/Sfogliatore.h"
#include "sets/ProvaEditori.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QScrollBar>

namespace {
const QString Radice = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\");
QString conNul(const QString &nome) { return nome + QString(LunghezzaTitoloFile - nome.size(), QChar(0)); }
} // namespace

class TestSchermiEditori : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteMenu> menu;
    AmbienteProva &a() { return *menu->ambiente; }
    QStringList risposteInput;

    QString media(const QString &nome) const { return menu->ambiente->Casa() + QStringLiteral("/media/") + nome; }
    QString dati(const QString &relativo) const { return menu->Dati(relativo); }

    QString film(const QString &nome)
    {
        QDir().mkpath(media(QString()));
        QFile::copy(QStringLiteral(COPPIE_SORGENTI "/app/programma/swf/premio_sole.swf"), media(nome));
        return media(nome);
    }
    QString immagine(const QString &nome, QColor c)
    {
        QDir().mkpath(media(QString()));
        AmbienteEditori::ScriviImmagine(media(nome), c, QSize(32, 24));
        return media(nome);
    }
    QString suono(const QString &nome)
    {
        QDir().mkpath(media(QString()));
        QFile::copy(QStringLiteral(COPPIE_SORGENTI "/app/programma/suoni/si.wav"), media(nome));
        return media(nome);
    }
    void rispondi(const QString &p) { a().risposteDialoghi << RispostaDialogo::File(p); }

    FormEditore *apriDalMenu(const QString &nome)
    {
        FormMenu *m = menu->MostraMenu();
        if (!m)
            return nullptr;
        QAction *voce = nome == QLatin1String("FormSS")   ? m->mnuSS
                        : nome == QLatin1String("FormPS") ? m->mnuPS
                        : nome == QLatin1String("Formgg") ? m->mnugg
                                                          : m->mnuPG;
        if (!voce->isEnabled())
            return nullptr;
        voce->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return qobject_cast<FormEditore *>(Schermi::Riferimento(nome));
    }
    template <typename T> static T *w(FormEditore *f, const char *nome)
    {
        T *c = f->Controllo<T>(QLatin1String(nome));
        if (!c)
            qWarning("missing control %s", nome);
        return c;
    }
    static void clic(FormEditore *f, const char *nome)
    {
        QWidget *c = f->Controlli.at(QLatin1String(nome));
        QVERIFY2(c->isVisible() && c->isEnabled(), nome);
        QTest::mouseClick(c, Qt::LeftButton, {}, QPoint(c->width() / 2, c->height() / 2));
    }
    static void avanti(FormEditore *f)
    {
        auto *b = w<QScrollBar>(f, "HScroll1");
        const int prima = b->value();
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        b->setFocus();
        QTest::keyClick(b, Qt::Key_Right);
        QCOMPARE(b->value(), prima + 1);
    }
    static void scrivi(FormEditore *f, const QString &parola)
    {
        auto *t = w<QLineEdit>(f, "Text1");
        t->selectAll();
        QTest::keyClicks(t, parola);
    }

    // One pair's media, through the screen of each editor.
    struct Scelte {
        QString lato1, lato2, suono1; // what the dialogs answer
    };
    void coppia(FormEditore *f, const QString &editore, const Scelte &s)
    {
        if (editore == QLatin1String("FormSS")) {
            clic(f, "Command3");
            rispondi(s.lato1);
            clic(f, "Command5");
            clic(f, "Command6");
            clic(f, "Command4");
            rispondi(s.lato2);
            clic(f, "Command5");
            clic(f, "Command6");
        } else if (editore == QLatin1String("FormPS")) {
            scrivi(f, s.lato1);
            clic(f, "Command3");
            rispondi(s.lato2);
            clic(f, "Command5");
            clic(f, "Command6");
        } else if (editore == QLatin1String("Formgg")) {
            rispondi(s.lato1);
            clic(f, "Image1");
            rispondi(s.lato2);
            clic(f, "Image2");
        } else {
            scrivi(f, s.lato1);
            rispondi(s.lato2);
            clic(f, "Image2");
        }
        if (!s.suono1.isEmpty()) {
            rispondi(s.suono1);
            clic(f, "CommandSuono1");
        }
    }

    // Plays the set on its board with four tiles until the reward, which it closes.
    bool giocaFinoAlPremio(int tipo, const QString &nome, const QString &tavola)
    {
        Profilo.NumeroTessere = 4;
        QPointer<FormMenu> m = menu->MostraMenu();
        if (!m)
            return false;
        QTest::mouseClick(m->Option1[tipo], Qt::LeftButton);
        QTest::mouseClick(m->Option2[4], Qt::LeftButton);
        const auto trovati = m->List2->findItems(nome, Qt::MatchExactly);
        if (trovati.size() != 1)
            return false;
        QTest::mouseClick(m->List2->viewport(), Qt::LeftButton, {}, m->List2->visualItemRect(trovati.first()).center());
        menu->RispondiNomi({QStringLiteral("Sara")});
        m->Command1_Click(0);
        auto *t = qobject_cast<FormTavola *>(Schermi::Riferimento(tavola));
        if (!t)
            return false;
        int premi = 0;
        std::function<void()> chiudi = [&] {
            auto *p = qobject_cast<FormPremio *>(Schermi::Riferimento(QStringLiteral("FormPremio")));
            if (!p || !p->isVisible() || !p->Command1->isEnabled()) {
                QTimer::singleShot(5, chiudi);
                return;
            }
            ++premi;
            QTest::mouseClick(p->Command1, Qt::LeftButton);
        };
        QTimer::singleShot(5, chiudi);
        Tavola &g = t->Partita();
        for (int giro = 0; giro < 2 && premi == 0; ++giro) {
            int primo = 0;
            while (primo < 4 && !g.FramePosto[primo].Visible)
                ++primo;
            int secondo = -1;
            for (int k = 0; k < 24; ++k)
                if (k != primo && g.FramePosto[k].Tag == g.FramePosto[primo].Tag)
                    secondo = k;
            if (secondo < 0)
                return false;
            QTest::mouseClick(t->FramePosto[primo], Qt::LeftButton);
            QTest::mouseClick(t->FramePosto[secondo], Qt::LeftButton);
        }
        t->mnuEsci_Click();
        if (t->FrameUscita->isVisible())
            QTest::mouseClick(t->FrameUscita->CommandSi, Qt::LeftButton);
        return premi == 1;
    }

private slots:
    void init()
    {
        menu = std::make_unique<AmbienteMenu>();
        RegistraSchermiBoard();
        RegistraSchermiSets();
        risposteInput.clear();
        ImpostaRispostaInputBox([this](const RichiestaInputBox &) {
            return risposteInput.isEmpty() ? QString() : risposteInput.takeFirst();
        });
    }
    void cleanup()
    {
        ImpostaRispostaInputBox({});
        menu.reset();
    }

    void eachEditorMakesTwelvePairsThatTheMenuListsAndItsBoardPlays_data()
    {
        QTest::addColumn<QString>("editore");
        QTest::addColumn<bool>("copia");
        for (const char *e : {"FormSS", "FormPS", "Formgg", "Formpg"}) {
            QTest::newRow(qPrintable(QStringLiteral("%1, copying on, sub-folder").arg(QLatin1String(e)))) << QString::fromLatin1(e) << true;
            QTest::newRow(qPrintable(QStringLiteral("%1, copying off").arg(QLatin1String(e)))) << QString::fromLatin1(e) << false;
        }
    }
    void eachEditorMakesTwelvePairsThatTheMenuListsAndItsBoardPlays()
    {
        QFETCH(QString, editore);
        QFETCH(bool, copia);
        const ImpostazioniEditore &imp = *EditoreDiNome(editore);
        FormEditore *f = apriDalMenu(editore);
        QVERIFY(f);
        QVERIFY(f->isVisible());
        QCOMPARE(f->geometry(), QRect(0, 0, 1024, 768));
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormMenu")));

        if (copia) {
            clic(f, "CheckCopiaFile");
            QVERIFY(w<QPushButton>(f, "CommandSottocartella")->isVisible());
            risposteInput << QStringLiteral("animali");
            clic(f, "CommandSottocartella");
        }
        const QString sotto = copia ? QStringLiteral("animali\\") : QString();
        const QString cartellaMedia = imp.CartellaMedia;
        QStringList righe;
        auto percorso = [&](const QString &locale, const QString &cartella) {
            return copia ? Radice + cartella + sotto + conNul(QFileInfo(locale).fileName()) : locale;
        };
        const QStringList parole = {"cane", "Gatto", "MUCCA", "pecora", "maiale", "cavallo",
                                    "coniglio", "gallina", "anatra", "topo", "rana", "pesce"};
        for (int i = 0; i < 12; ++i) {
            if (i > 0)
                avanti(f);
            Scelte s;
            const bool film = imp.HaFilm();
            const QColor c1 = QColor::fromHsv(i * 30, 255, 255), c2 = QColor::fromHsv(i * 30, 120, 200);
            if (imp.HaParola())
                s.lato1 = parole[i];
            else
                s.lato1 = film ? this->film(QStringLiteral("a%1.swf").arg(i)) : immagine(QStringLiteral("a%1.gif").arg(i), c1);
            s.lato2 = film ? this->film(QStringLiteral("b%1.swf").arg(i)) : immagine(QStringLiteral("b%1.png").arg(i), c2);
            if (i % 3 == 0)
                s.suono1 = suono(QStringLiteral("s%1.wav").arg(i));
            coppia(f, editore, s);
            righe << (imp.HaParola() ? s.lato1 : percorso(s.lato1, cartellaMedia))
                  << percorso(s.lato2, cartellaMedia)
                  << (s.suono1.isEmpty() ? QString() : percorso(s.suono1, QStringLiteral("suoni\\"))) << QString();
        }
        QCOMPARE(f->Modello().CoppiaMassima, qint16(12));
        QVERIFY(!w<QCheckBox>(f, "CheckCopiaFile")->isEnabled());

        const QString nome = QStringLiteral("fattoria.") + imp.Estensione;
        const QString file = dati(imp.Cartella.left(2) + u'/' + nome);
        rispondi(file);
        clic(f, "Command1");
        QVERIFY(a().scatole.empty()); // twelve pairs: no question
        QByteArray atteso;
        for (const QString &r : righe)
            atteso += CodificaTesto(r) + "\r\n";
        QCOMPARE(AmbienteProva::Leggi(file), atteso);
        if (copia) {
            QVERIFY(QFileInfo::exists(dati(QStringLiteral("suoni/animali/s0.wav"))));
            QVERIFY(QFileInfo::exists(dati(cartellaMedia.left(3) + QStringLiteral("/animali/b11.") + (imp.HaFilm() ? "swf" : "png"))));
        }

        // Back to the menu, which lists the set at once; then its board plays it.
        a().risposte << Msg::vbYes;
        f->mnuEsci->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!Schermi::Riferimento(editore));
        auto *m = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
        QVERIFY(m);
        const int tipo = imp.Cartella.startsWith(QLatin1String("ii")) ? 2 : 1;
        const QString tavola = editore == QLatin1String("FormSS")   ? QStringLiteral("FormmemSS")
                               : editore == QLatin1String("FormPS") ? QStringLiteral("FormmemPS")
                               : editore == QLatin1String("Formgg") ? QStringLiteral("FormmemGG")
                                                                    : QStringLiteral("FormmemPG");
        try {
            QVERIFY2(giocaFinoAlPremio(tipo, nome, tavola), "no reward");
        } catch (const ProcessoTerminato &p) {
            QFAIL(qPrintable(QStringLiteral("the program ended: ") + p.fine.messaggio));
        }
    }

    void aReadyMadeSetSavedUnchangedIsTheSameFileAndAChangedPairDiffersInItsLines_data()
    {
        QTest::addColumn<QString>("editore");
        QTest::addColumn<QString>("pronto");
        QTest::newRow("Formgg animali.agg") << "Formgg" << "ii/animali.agg";
        QTest::newRow("Formpg colori.apg") << "Formpg" << "pi/colori.apg";
        QTest::newRow("FormSS film") << "FormSS" << "ii/film_cielo_e_giochi.ass";
        QTest::newRow("FormPS film") << "FormPS" << "pi/film_cielo_e_giochi.aps";
    }
    void aReadyMadeSetSavedUnchangedIsTheSameFileAndAChangedPairDiffersInItsLines()
    {
        QFETCH(QString, editore);
        QFETCH(QString, pronto);
        // The ready-made sets and their media, where the import puts them.
        const QString sorgente = QStringLiteral(COPPIE_SORGENTI "/app/programma/memorypronti/");
        for (const char *c : {"gif", "swf", "suoni"}) {
            QDir d(sorgente + QLatin1String(c));
            for (const QString &x : d.entryList(QDir::Files))
                QFile::copy(d.filePath(x), dati(QLatin1String(c) + u'/' + x));
        }
        const QString originale = dati(pronto);
        QFile::copy(sorgente + pronto, originale);
        const QByteArray prima = AmbienteProva::Leggi(originale);
        QVERIFY(!prima.isEmpty());

        FormEditore *f = apriDalMenu(editore);
        QVERIFY(f);
        rispondi(originale);
        clic(f, "CommandModificaLista");
        QCOMPARE(w<QLabel>(f, "Label1")->text(), originale);
        const QString stesso = dati(pronto + QStringLiteral(".copia"));
        rispondi(stesso);
        clic(f, "Command1");
        if (!a().scatole.empty()) // a set of fewer than eleven pairs asks
            QCOMPARE(a().scatole.back().testo, TestoLingua(EditoreDiNome(editore)->Chiavi.MenoDiDodici));
        QCOMPARE(AmbienteProva::Leggi(stesso), prima);

        // The second pair's sound changed: only its line differs.
        avanti(f);
        const QString nuovo = suono(QStringLiteral("nuovo.wav"));
        rispondi(nuovo);
        clic(f, "CommandSuono1");
        const QString cambiato = dati(pronto + QStringLiteral(".cambiato"));
        rispondi(cambiato);
        clic(f, "Command1");
        const QStringList vecchie = DividiRighe(DecodificaTesto(prima));
        const QStringList nuove = DividiRighe(DecodificaTesto(AmbienteProva::Leggi(cambiato)));
        QCOMPARE(nuove.size(), vecchie.size());
        QStringList diverse;
        for (int i = 0; i < vecchie.size(); ++i)
            if (vecchie[i] != nuove[i])
                diverse << QString::number(i + 1);
        QCOMPARE(diverse, QStringList{QStringLiteral("7")});
        QCOMPARE(nuove[6], nuovo);
    }

    void theKeyboardMovesThePairsAndOpensAnImageBox()
    {
        FormEditore *f = apriDalMenu(QStringLiteral("Formpg"));
        QVERIFY(f);
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        auto *parola = w<QLineEdit>(f, "Text1");
        parola->setFocus();
        QTest::keyClicks(parola, QStringLiteral("sole"));
        auto *immagine = f->Controlli.at(QStringLiteral("Image2"));
        immagine->setFocus();
        QCOMPARE(QApplication::focusWidget(), immagine);
        rispondi(immagine == nullptr ? QString() : this->immagine(QStringLiteral("sole.png"), Qt::yellow));
        QTest::keyClick(immagine, Qt::Key_Return);
        QCOMPARE(int(a().dialoghi.size()), 1);
        QCOMPARE(f->Modello().Elenco.Campo(1, 2), media(QStringLiteral("sole.png")));
        auto *barra = w<QScrollBar>(f, "HScroll1");
        barra->setFocus();
        QTest::keyClick(barra, Qt::Key_Right);
        QCOMPARE(f->Modello().CoppiaCorrente, qint16(2));
        QCOMPARE(parola->text(), QString());
        QTest::keyClick(barra, Qt::Key_Home);
        QCOMPARE(parola->text(), QStringLiteral("sole"));
    }

    void theBrowserPicksAPictureByItsThumbnailOnTheScreen()
    {
        FormEditore *f = apriDalMenu(QStringLiteral("Formgg"));
        QVERIFY(f);
        QDir().mkpath(media(QStringLiteral("foto")));
        for (int i = 0; i < 5; ++i)
            AmbienteEditori::ScriviImmagine(media(QStringLiteral("foto/f%1.gif").arg(i)), QColor::fromHsv(i * 60, 255, 255), QSize(50, 40));
        f->Modello().Miniature()->Dir1Path = QDir::toNativeSeparators(media(QStringLiteral("foto")));
        clic(f, "CheckAnteprima");
        clic(f, "Image1");
        auto *pannello = f->Controlli.at(QStringLiteral("Frame1"));
        QVERIFY(pannello->isVisible());
        QCOMPARE(pannello->geometry().topLeft(), QPoint(0, 0));
        auto *lista = w<QListWidget>(f, "ListView1");
        AttendiFinche([&] { return lista->count() == 5; });
        QTRY_VERIFY(!w<QProgressBar>(f, "barr1")->isVisible());
        QCOMPARE(lista->item(3)->text(), QDir::toNativeSeparators(media(QStringLiteral("foto/f3.gif"))));
        QCOMPARE(lista->iconSize(), QSize(100, 100));
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, lista->visualItemRect(lista->item(3)).center());
        QVERIFY(!pannello->isVisible());
        QCOMPARE(f->Modello().Elenco.Campo(1, 1), QDir::toNativeSeparators(media(QStringLiteral("foto/f3.gif"))));
        QVERIFY(!w<QLabel>(f, "Image1")->pixmap().isNull());
        // The folder list: a double-click on a folder fills from it.
        auto *cartelle = w<QListWidget>(f, "Dir1");
        QVERIFY(cartelle->count() > 0);
        QVERIFY(cartelle->currentItem());
        QCOMPARE(cartelle->currentItem()->data(Qt::UserRole).toString(), QDir::toNativeSeparators(media(QStringLiteral("foto"))));
    }
};

QTEST_MAIN(TestSchermiEditori)
#include "test_schermi_editori.moc"
