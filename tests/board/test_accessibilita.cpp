// What a screen reader reads: the accessibility tree of the menu and of the
// boards on the offscreen platform, in Italian and in English. Names, roles
// and states are read through Qt's interfaces; the events the game sends (the
// reader's focus on the highlighted tile, a tile renamed, an alert) are seen
// through the game's observer, since Qt drops events where no reader listens.

#include "ProvaTavola.h"
#include "menu/AiutoMenu.h"

#include "board/DescrizioneTessere.h"
#include "board/FormPremio.h"
#include "board/FormTavola.h"
#include "board/FrameUscitaTavola.h"
#include "board/RegistraBoard.h"
#include "lang/TestiAccessibili.h"
#include "lang/modLanguageSupport.h"
#include "platform/Casuale.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QRegularExpression>

namespace {
struct Evento {
    QAccessible::Event tipo;
    QObject *oggetto;
    QAccessible::State cambiato;
};

// What a language says, as written in its file.
struct Testi {
    QString tessera, coperta, trovata, tavola, premio, domanda, menu;
};

Testi testiDi(const QString &lingua)
{
    if (lingua == QLatin1String("English"))
        return {QStringLiteral("Tile %1, row %2, column %3: %4"), QStringLiteral("face down"), QStringLiteral("found: "),
                QStringLiteral("Pairs game of films and films"), QStringLiteral("Well done! You found all the pairs"),
                QStringLiteral("Do you want to leave the game?"), QStringLiteral("Coppie vivaci: menu, choose the game")};
    return {QStringLiteral("Tessera %1, riga %2, colonna %3: %4"), QStringLiteral("coperta"), QStringLiteral("trovata: "),
            QStringLiteral("Memory di filmati e filmati"), QStringLiteral("Bravo! Hai trovato tutte le coppie"),
            QStringLiteral("Vuoi uscire dal gioco?"), QStringLiteral("Coppie vivaci: menu, scegli il gioco")};
}

QAccessibleInterface *interfaccia(QObject *o) { return QAccessible::queryAccessibleInterface(o); }
QString nome(QObject *o) { return interfaccia(o)->text(QAccessible::Name); }
} // namespace

class TestAccessibilita : public QObject
{
    Q_OBJECT
private:
    std::vector<Evento> eventi;

    int quanti(QAccessible::Event tipo, QObject *o = nullptr) const
    {
        int n = 0;
        for (const Evento &e : eventi)
            if (e.tipo == tipo && (!o || e.oggetto == o))
                ++n;
        return n;
    }
    QObject *ultimoFuoco() const
    {
        for (auto it = eventi.rbegin(); it != eventi.rend(); ++it)
            if (it->tipo == QAccessible::Focus)
                return it->oggetto;
        return nullptr;
    }

    static void tasto(FormTavola *f, Qt::Key k)
    {
        f->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f));
        if (f->PictureScansione)
            f->PictureScansione->setFocus();
        QTest::keyClick(f->windowHandle(), k);
    }

    // After a step of the highlight: the highlighted tile alone has the
    // reader's focus, it was the last focus told, and it says its place.
    void controllaFuoco(FormTavola *f, const Testi &testi)
    {
        const Tavola &t = f->Partita();
        const int p = t.PostoEvidenziato;
        QCOMPARE(PostoEvidenziatoMostrato(t), p);
        QCOMPARE(interfaccia(f)->focusChild(), interfaccia(f->FramePosto[p]));
        for (int k = 0; k < Tavola::NumeroTessere(); ++k)
            QCOMPARE(interfaccia(f->FramePosto[k])->state().focused, k == p);
        QCOMPARE(ultimoFuoco(), f->FramePosto[p]);
        const int colonne = t.Geometria.NumeroColonne;
        QCOMPARE(nome(f->FramePosto[p]), testi.tessera.arg(p + 1).arg(p / colonne + 1).arg(p % colonne + 1).arg(testi.coperta));
    }

private slots:
    void initTestCase()
    {
        ImpostaOsservatoreAccessibile([this](QAccessibleEvent *e) {
            Evento x{e->type(), e->object(), {}};
            if (e->type() == QAccessible::StateChanged)
                x.cambiato = static_cast<QAccessibleStateChangeEvent *>(e)->changedStates();
            eventi.push_back(x);
        });
    }
    void cleanupTestCase() { ImpostaOsservatoreAccessibile({}); }
    void init() { eventi.clear(); }
    void cleanup()
    {
        Schermi::ScaricaTuttiPerProve();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        LiberaPuntatore();
        LinguaCorrente.clear();
    }

    void theMenuNamesItsControlsAndItsOptionsAreReachedByTabWithTheirState_data()
    {
        QTest::addColumn<QString>("lingua");
        QTest::newRow("Italiano") << QStringLiteral("Italiano");
        QTest::newRow("English") << QStringLiteral("English");
    }
    void theMenuNamesItsControlsAndItsOptionsAreReachedByTabWithTheirState()
    {
        QFETCH(QString, lingua);
        AmbienteMenu a;
        a.Set(QStringLiteral("ii/animali.agg"), 12);
        // The menu takes its language from LangSetting.ini, as the language menu leaves it.
        ScegliLingua(lingua);
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        const Testi testi = testiDi(lingua);
        QAccessibleInterface *form = interfaccia(m);
        QCOMPARE(form->text(QAccessible::Name), testi.menu);
        QVERIFY(!form->text(QAccessible::Description).isEmpty());

        // Every option is a radio button named by its caption in this language, on when it is chosen.
        const QString file = PercorsoFileLingua(lingua);
        QList<OpzioneGrafica *> opzioni;
        for (auto *gruppo : {&m->Option1, &m->Option2, &m->Option3}) {
            int accese = 0;
            for (auto &[indice, o] : *gruppo) {
                opzioni << o;
                QAccessibleInterface *i = interfaccia(o);
                QCOMPARE(i->role(), QAccessible::RadioButton);
                QVERIFY(i->state().checkable);
                QCOMPARE(bool(i->state().checked), o->Valore());
                accese += o->Valore() ? 1 : 0;
                QVERIFY(!i->text(QAccessible::Name).isEmpty());
            }
            QCOMPARE(accese, 1);
        }
        QCOMPARE(nome(m->Option1[0]), LeggiVoce(file, QStringLiteral("FormMenu"), QStringLiteral("Option1(0).Caption")));
        QCOMPARE(nome(m->Command1[0]), lingua == QLatin1String("English") ? QStringLiteral("Play") : QStringLiteral("Gioca"));
        QCOMPARE(nome(m->List2), lingua == QLatin1String("English") ? QStringLiteral("Sets of pairs")
                                                                    : QStringLiteral("Giochi di coppie"));
        QCOMPARE(nome(m->Combo1), lingua == QLatin1String("English") ? QStringLiteral("Player") : QStringLiteral("Giocatore"));

        // Tab goes round every enabled option; each one reached has the focus in the tree too.
        m->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m));
        QSet<QWidget *> raggiunti;
        for (int giri = 0; giri < 60; ++giri) {
            QWidget *prima = QApplication::focusWidget();
            QTest::keyClick(prima ? prima : static_cast<QWidget *>(m), Qt::Key_Tab);
            QWidget *w = QApplication::focusWidget();
            QVERIFY(w);
            QVERIFY(interfaccia(w)->state().focused);
            raggiunti.insert(w);
        }
        for (OpzioneGrafica *o : opzioni)
            QCOMPARE(raggiunti.contains(o), o->isEnabled());
        QVERIFY(raggiunti.contains(m->Command1[0]));
        QVERIFY(raggiunti.contains(m->List2));

        // Space on a focused option that is off turns it on and its sibling off, and says so.
        OpzioneGrafica *due = m->Option3[1];
        QVERIFY(!due->Valore());
        due->setFocus();
        eventi.clear();
        QTest::keyClick(due, Qt::Key_Space);
        QVERIFY(due->Valore());
        QVERIFY(interfaccia(due)->state().checked);
        QVERIFY(!interfaccia(m->Option3[0])->state().checked);
        QCOMPARE(NumeroGiocatori, qint16(2));
        int segnalati = 0;
        for (const Evento &e : eventi)
            if (e.tipo == QAccessible::StateChanged && e.cambiato.checked
                && (e.oggetto == due || e.oggetto == m->Option3[0]))
                ++segnalati;
        QCOMPARE(segnalati, 2);

        // The exit panel is an alert with the question, told when it comes up; Yes has the focus.
        eventi.clear();
        QTest::mouseClick(m->Command1[1], Qt::LeftButton);
        QVERIFY(m->FrameUscita->isVisible());
        QCOMPARE(interfaccia(m->FrameUscita)->role(), QAccessible::AlertMessage);
        QCOMPARE(nome(m->FrameUscita), testi.domanda);
        QCOMPARE(quanti(QAccessible::Alert, m->FrameUscita), 1);
        QCOMPARE(QApplication::focusWidget(), m->CommandSi);
        QCOMPARE(nome(m->CommandSi), TestoLingua(QStringLiteral("0005")));
        QTest::mouseClick(m->CommandNo, Qt::LeftButton);
        QVERIFY(!m->FrameUscita->isVisible());
    }

    void theNamesFollowTheLanguageChosenOnTheMenu()
    {
        auto amb = std::make_unique<AmbienteProva>();
        ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
        RegistraSchermiBoard();
        ProfiloDiProva();
        SeminaCasuale(5);
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("prova.ass"), 6);
        LinguaCorrente = QStringLiteral("Italiano");
        Schermi::Mostra(QStringLiteral("FormmemSS"));
        auto *f = qobject_cast<FormTavola *>(Schermi::Riferimento(QStringLiteral("FormmemSS")));
        QVERIFY(f);
        QCOMPARE(nome(f), testiDi(QStringLiteral("Italiano")).tavola);
        QCOMPARE(nome(f->FramePosto[0]), QStringLiteral("Tessera 1, riga 1, colonna 1: coperta"));
        ScegliLingua(QStringLiteral("English"));
        QCOMPARE(nome(f), testiDi(QStringLiteral("English")).tavola);
        QCOMPARE(nome(f->FramePosto[0]), QStringLiteral("Tile 1, row 1, column 1: face down"));
        QCOMPARE(interfaccia(f->PictureScansione)->text(QAccessible::Name), QStringLiteral("Game tiles"));
    }

    void aGameIsFollowedStepByStepToTheReward_data()
    {
        QTest::addColumn<QString>("lingua");
        QTest::addColumn<int>("modo");
        QTest::newRow("Italiano, manual scanning") << QStringLiteral("Italiano") << int(ModoInputValori::ScansioneManuale);
        QTest::newRow("English, keyboard") << QStringLiteral("English") << int(ModoInputValori::Tastiera);
    }
    void aGameIsFollowedStepByStepToTheReward()
    {
        QFETCH(QString, lingua);
        QFETCH(int, modo);
        auto amb = std::make_unique<AmbienteProva>();
        ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
        RegistraSchermiBoard();
        ProfiloDiProva();
        Profilo.ModoInput = qint16(modo);
        Profilo.NumeroTessere = 6;
        SeminaCasuale(7);
        FileMemory = ScriviSet(amb->Casa(), QStringLiteral("prova.ass"), 6);
        LinguaCorrente = lingua;
        const Testi testi = testiDi(lingua);
        const Qt::Key avanti = modo == ModoInputValori::Tastiera ? Qt::Key_Right : Qt::Key_Space;

        Schermi::Mostra(QStringLiteral("FormmemSS"));
        auto *f = qobject_cast<FormTavola *>(Schermi::Riferimento(QStringLiteral("FormmemSS")));
        QVERIFY(f);
        Tavola &t = f->Partita();
        const int N = Tavola::NumeroTessere();
        QAccessibleInterface *form = interfaccia(f);
        QCOMPARE(form->text(QAccessible::Name), testi.tavola);
        QCOMPARE(form->role(), QAccessible::Window);

        // The board shows the reader its tiles in play, the focus holder, the
        // players' panel and the menu bar, and no face behind a cover.
        QCOMPARE(form->childCount(), N + 3);
        for (int k = 0; k < form->childCount(); ++k) {
            QAccessibleInterface *c = form->child(k);
            QVERIFY(c);
            QCOMPARE(form->indexOfChild(c), k);
            QCOMPARE(c->parent(), form);
        }
        for (int k = 0; k < 24; ++k) {
            QAccessibleInterface *i = interfaccia(f->FramePosto[k]);
            QCOMPARE(i->role(), QAccessible::Button);
            QCOMPARE(bool(i->state().invisible), k >= N);
            QCOMPARE(form->indexOfChild(i) >= 0, k < N);
        }
        QCOMPARE(interfaccia(f->PictureScansione)->text(QAccessible::Name),
                 lingua == QLatin1String("English") ? QStringLiteral("Game tiles") : QStringLiteral("Tessere del gioco"));
        QCOMPARE(interfaccia(f->StatusBar1)->role(), QAccessible::StatusBar);

        // The exit question is an alert, told when it comes up; while it stands no tile has the focus.
        f->mnuEsci->trigger();
        QCOMPARE(interfaccia(f->FrameUscita)->role(), QAccessible::AlertMessage);
        QCOMPARE(nome(f->FrameUscita), testi.domanda);
        QCOMPARE(quanti(QAccessible::Alert, f->FrameUscita), 1);
        QCOMPARE(form->childCount(), N + 4);
        for (int k = 0; k < N; ++k)
            QVERIFY(!interfaccia(f->FramePosto[k])->state().focused);
        QTest::mouseClick(f->FrameUscita->CommandNo, Qt::LeftButton);
        QVERIFY(!f->FrameUscita->isVisible());

        // The game: each pair is reached step by step and chosen.
        int premi = 0;
        std::function<void()> chiudi = [&] {
            auto *p = qobject_cast<FormPremio *>(Schermi::Riferimento(QStringLiteral("FormPremio")));
            if (!p || !p->isVisible() || !p->Command1->isEnabled() || QApplication::focusWidget() != p->Command1) {
                QTimer::singleShot(5, chiudi);
                return;
            }
            ++premi;
            QCOMPARE(nome(p), testi.premio);
            QVERIFY(!interfaccia(p)->text(QAccessible::Description).isEmpty());
            QCOMPARE(quanti(QAccessible::Alert, p), 1);
            QVERIFY(interfaccia(p->Command1)->state().focused);
            QTest::keyClick(p->Command1, Qt::Key_Space);
        };
        QTimer::singleShot(5, chiudi);

        const int colonne = t.Geometria.NumeroColonne;
        const QRegularExpression faccia(QStringLiteral("^[ab]\\d$"));
        auto raggiungi = [&](int posto) {
            for (int passi = 0; PostoEvidenziatoMostrato(t) != posto; ++passi) {
                QVERIFY2(passi <= 2 * N, "the highlight never reached the tile");
                const int fuochiPrima = quanti(QAccessible::Focus);
                const int primaPosto = PostoEvidenziatoMostrato(t);
                tasto(f, avanti);
                controllaFuoco(f, testi);
                // one focus for each step that moves
                QCOMPARE(quanti(QAccessible::Focus), fuochiPrima + (t.PostoEvidenziato != primaPosto ? 1 : 0));
            }
        };
        for (int coppia = 0; coppia < N / 2; ++coppia) {
            int a = 0;
            while (!t.FramePosto[a].Visible)
                ++a;
            int b = -1;
            for (int k = 0; k < N; ++k)
                if (k != a && t.FramePosto[k].Tag == t.FramePosto[a].Tag)
                    b = k;
            QVERIFY(b > a);
            raggiungi(a);
            const int rinominata = quanti(QAccessible::NameChanged, f->FramePosto[a]);
            tasto(f, Qt::Key_Return);
            // Turned: the tile says its face, and it was renamed for the reader.
            const QString stato = StatoTessera(t, a);
            QVERIFY2(faccia.match(stato).hasMatch(), qPrintable(stato));
            QCOMPARE(nome(f->FramePosto[a]), testi.tessera.arg(a + 1).arg(a / colonne + 1).arg(a % colonne + 1).arg(stato));
            QVERIFY(quanti(QAccessible::NameChanged, f->FramePosto[a]) > rinominata);
            QVERIFY(interfaccia(f->FramePosto[a])->state().disabled);
            if (coppia + 1 < N / 2) {
                raggiungi(b);
                tasto(f, Qt::Key_Return);
                for (int k : {a, b}) {
                    const QString n = nome(f->FramePosto[k]);
                    QVERIFY2(n.endsWith(testi.trovata + StatoTessera(t, k).mid(testi.trovata.size())), qPrintable(n));
                    QVERIFY2(StatoTessera(t, k).startsWith(testi.trovata), qPrintable(StatoTessera(t, k)));
                }
                // both sides of a pair: "a3" and "b3"
                QCOMPARE(StatoTessera(t, a).right(1), StatoTessera(t, b).right(1));
            } else {
                raggiungi(b);
                tasto(f, Qt::Key_Return); // the last pair: the reward comes and is closed
            }
        }
        QCOMPARE(premi, 1);
        // A new game: every tile covered again, renamed so.
        for (int k = 0; k < N; ++k)
            QCOMPARE(StatoTessera(t, k), testi.coperta);
    }

    void aPictureIsNamedByItsFile_data()
    {
        QTest::addColumn<QString>("percorso");
        QTest::addColumn<QString>("nome");
        QTest::newRow("windows") << "C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\gif\\cane_nero.gif" << "cane nero";
        QTest::newRow("linux") << "/home/anna/gatto-rosso.png" << "gatto rosso";
        QTest::newRow("no extension") << "sole" << "sole";
        QTest::newRow("empty") << "" << "";
    }
    void aPictureIsNamedByItsFile()
    {
        QFETCH(QString, percorso);
        QFETCH(QString, nome);
        QCOMPARE(NomeDaFile(percorso), nome);
    }
};

QTEST_MAIN(TestAccessibilita)
#include "test_accessibilita.moc"
