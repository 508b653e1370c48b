// The information screen, the documents, and the language menu.

#include "AiutoMenu.h"

#include "menu/FormInfo.h"
#include "menu/ModuloNavigate.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

namespace {
struct Documenti {
    Documenti()
    {
        ImpostaAperturaDocumenti([this](const QUrl &u) { aperti << u.toLocalFile(); });
    }
    ~Documenti() { ImpostaAperturaDocumenti({}); }
    QStringList aperti;
};

QStringList voci(FormMenu *m)
{
    QStringList r;
    for (QAction *a : m->mnuLanguage)
        r << a->text();
    return r;
}

QList<bool> spunte(FormMenu *m)
{
    QList<bool> r;
    for (QAction *a : m->mnuLanguage)
        r << a->isChecked();
    return r;
}

void scriviLinguaImpostata(const QString &lingua)
{
    ScriviVoce(PercorsoImpostazioneLingua(), QStringLiteral("Language"), QStringLiteral("CurrentLanguage"), lingua);
}
} // namespace

class ProvaInfoLingua : public QObject
{
    Q_OBJECT

private slots:
    // The information screen.
    void creditsTermsAndTranslatorsAreBuiltAtActivation()
    {
        AmbienteMenu a;
        Schermi::Mostra(QStringLiteral("FormInfo"));
        auto *f = qobject_cast<FormInfo *>(Schermi::Riferimento(QStringLiteral("FormInfo")));
        QVERIFY(f);
        QCOMPARE(f->Label1->text(), TestoLingua(QStringLiteral("0023")) + u'\n' + RigheCrediti.join(u'\n') + u'\n');
        QCOMPARE(RigheCrediti.size(), 3);
        QCOMPARE(f->Label3->text(), CondizioniUso.join(u'\n'));
        QCOMPARE(CondizioniUso.size(), 3);
        QCOMPARE(f->Label4->text(), TestoLingua(QStringLiteral("9996")) + u'\n');
        QCOMPARE(f->geometry(), RettangoloSchermo());
        QCOMPARE(f->Command1->text(), QStringLiteral("Chiudi"));
    }

    void aLanguageWithOnly9997GivesOneTranslatorsLine()
    {
        AmbienteMenu a;
        AmbienteProva::Scrivi(a.ambiente->Programma() + QStringLiteral("/Prova.lng"),
                              "[Strings]\r\n0023=Fatto da:\r\n9997=Tradotto da Zeno\r\n");
        scriviLinguaImpostata(QStringLiteral("Prova"));
        Schermi::Mostra(QStringLiteral("FormInfo"));
        auto *f = qobject_cast<FormInfo *>(Schermi::Riferimento(QStringLiteral("FormInfo")));
        QCOMPARE(f->Label4->text(), QStringLiteral("Tradotto da Zeno\n"));
        QCOMPARE(f->Label1->text().section(u'\n', 0, 0), QStringLiteral("Fatto da:"));
    }

    void aLanguageWithoutTheKeysLeavesTheTranslatorsBlockEmpty()
    {
        AmbienteMenu a;
        AmbienteProva::Scrivi(a.ambiente->Programma() + QStringLiteral("/Vuota.lng"), "[Strings]\r\n");
        scriviLinguaImpostata(QStringLiteral("Vuota"));
        Schermi::Mostra(QStringLiteral("FormInfo"));
        auto *f = qobject_cast<FormInfo *>(Schermi::Riferimento(QStringLiteral("FormInfo")));
        QVERIFY(f->Label4->text().isEmpty());
    }

    void aboutLeadsToTheInformationAndCloseBackToTheMenu()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        m->mnuAbout->trigger();
        QVERIFY(Schermi::Riferimento(QStringLiteral("FormInfo")));
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormMenu")));
        auto *f = qobject_cast<FormInfo *>(Schermi::Riferimento(QStringLiteral("FormInfo")));
        QTest::mouseClick(f->Command1, Qt::LeftButton);
        QVERIFY(Schermi::Riferimento(QStringLiteral("FormMenu")));
        QVERIFY(!Schermi::Riferimento(QStringLiteral("FormInfo")));
        QCOMPARE(Schermi::Corrente(), Schermi::Riferimento(QStringLiteral("FormMenu")));
    }

    void thePictureOpensTheDocumentAboutTheGameAndTheScreenStays()
    {
        AmbienteMenu a;
        Documenti d;
        AmbienteProva::Scrivi(a.ambiente->Programma() + QStringLiteral("/documento.pdf"), "%PDF-1.4\n");
        Schermi::Mostra(QStringLiteral("FormInfo"));
        auto *f = qobject_cast<FormInfo *>(Schermi::Riferimento(QStringLiteral("FormInfo")));
        QTest::mouseClick(f->Image1, Qt::LeftButton);
        QCOMPARE(d.aperti, QStringList{QFileInfo(a.ambiente->Programma() + QStringLiteral("/documento.pdf")).absoluteFilePath()});
        QCOMPARE(Schermi::Riferimento(QStringLiteral("FormInfo")), f);
    }

    // Edge cases of the documents.
    void theManualOpensFromTheMenuBarWhileThePointerIsFree()
    {
        AmbienteMenu a;
        Documenti d;
        AmbienteProva::Scrivi(a.ambiente->Programma() + QStringLiteral("/tesselo.pdf"), "%PDF-1.4\n");
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QVERIFY(!PuntatoreConfinato());
        m->mnuDocumentazione->trigger();
        QCOMPARE(d.aperti, QStringList{QFileInfo(a.ambiente->Programma() + QStringLiteral("/tesselo.pdf")).absoluteFilePath()});
        QCOMPARE(Schermi::Riferimento(QStringLiteral("FormMenu")), m);
        // With the exit panel up the pointer is held away from the menu bar.
        m->PresentaFinestraUscita();
        const QRect barra(m->BarraMenu->mapToGlobal(QPoint(0, 0)), m->BarraMenu->size());
        QVERIFY(PuntatoreConfinato());
        QVERIFY(!RettangoloConfinamento().intersects(barra));
    }

    void aMissingDocumentIsSilent()
    {
        AmbienteMenu a;
        Documenti d;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        m->mnuDocumentazione->trigger();
        QVERIFY(d.aperti.isEmpty());
        QVERIFY(a.ambiente->scatole.empty());
        QCOMPARE(Schermi::Riferimento(QStringLiteral("FormMenu")), m);
    }

    // The language menu.
    void theLanguageMenuHasOneItemPerFileAndTicksTheCurrentOne()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(voci(m), (QStringList{QStringLiteral("English"), QStringLiteral("Italiano")}));
        QCOMPARE(spunte(m), (QList<bool>{false, true}));
        QCOMPARE(LinguaCorrente, QStringLiteral("Italiano"));
        for (QAction *x : m->mnuLanguage)
            QVERIFY(m->mnuLanguages->actions().contains(x));
    }

    void twoLanguagesDifferingInCaseAreTwoItemsAndOnlyTheExactOneIsTicked()
    {
        AmbienteMenu a;
        QFile::copy(PercorsoLocale(PercorsoFileLingua(QStringLiteral("Italiano"))),
                    a.ambiente->Programma() + QStringLiteral("/italiano.lng"));
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(voci(m).size(), 3);
        QVERIFY(voci(m).contains(QStringLiteral("italiano")));
        QVERIFY(voci(m).contains(QStringLiteral("Italiano")));
        const int esatto = int(voci(m).indexOf(QStringLiteral("Italiano")));
        for (int i = 0; i < voci(m).size(); ++i)
            QCOMPARE(spunte(m)[i], i == esatto);
    }

    void noExactMatchTicksNothing()
    {
        AmbienteMenu a;
        scriviLinguaImpostata(QStringLiteral("ITALIANO"));
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(spunte(m), (QList<bool>{false, false}));
    }

    void noLanguageFileShowsTheMessageAndLeavesTheMenuAsDesigned()
    {
        AmbienteMenu a(false);
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        QCOMPARE(a.ambiente->scatole.size(), size_t(1));
        QCOMPARE(a.ambiente->scatole[0].testo, QStringLiteral("Non è presente alcun file di linguaggio!"));
        QCOMPARE(a.ambiente->scatole[0].stile, 0);
        QCOMPARE(m->mnuLanguage.size(), 1);
        QCOMPARE(m->Frame2->title(), QStringLiteral("Tessere"));
    }

    void choosingALanguageTranslatesEveryOpenFormWritesItAndDressesAgain()
    {
        AmbienteMenu a;
        FormMenu *m = a.MostraMenu();
        QVERIFY(m);
        auto *info = qobject_cast<FormInfo *>(Schermi::Carica(QStringLiteral("FormInfo")));
        m->PresentaFinestraUscita();
        m->CommandNo_Click();
        const QString siPrima = m->LabelSi->text();
        const int inglese = int(voci(m).indexOf(QStringLiteral("English")));
        m->mnuLanguage[inglese]->trigger();
        QCOMPARE(spunte(m), (QList<bool>{true, false}));
        QCOMPARE(LinguaCorrente, QStringLiteral("English"));
        QCOMPARE(m->Frame2->title(), QStringLiteral("Tiles"));
        QCOMPARE(m->mnuInformazioni->title(), QStringLiteral("Information"));
        QCOMPARE(info->Command1->text(), QStringLiteral("Close"));
        QCOMPARE(LinguaImpostata(), QStringLiteral("English"));
        // A text fetched at run time changes when it is next fetched, not at the click.
        QCOMPARE(m->LabelSi->text(), siPrima);
        QVERIFY(m->Timer1->isActive());
        QVERIFY(AmbienteMenu::AttendiVestizione(m));
        m->PresentaFinestraUscita();
        QCOMPARE(m->LabelSi->text(), QStringLiteral("YES"));
    }
};

QTEST_MAIN(ProvaInfoLingua)
#include "test_info_lingua.moc"
