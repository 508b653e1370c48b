#include "AmbienteProva.h"

#include "lang/FileProfilo.h"
#include "lang/modLanguageSupport.h"
#include "platform/Controlli.h"
#include "platform/ScritturaIntera.h"
#include "platform/Schermi.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>

namespace {
void scriviLingua(const AmbienteProva &a, const QString &nome, const QByteArray &testo)
{
    AmbienteProva::Scrivi(a.Programma() + u'/' + nome + QStringLiteral(".lng"), testo);
}
} // namespace

class TestLingua : public QObject
{
    Q_OBJECT
private slots:
    void init() { LinguaCorrente.clear(); }

    void sectionsAndKeysIgnoreCaseAndValuesAreTrimmedAndUnquoted()
    {
        const QString t = QStringLiteral("[strings]\r\n  0001 =   \"  ciao  \"  \r\n0002='uno'\r\n0003=\"solo\r\n");
        QCOMPARE(LeggiVoceProfiloPrivato(t, QStringLiteral("STRINGS"), QStringLiteral("0001")), QStringLiteral("  ciao  "));
        QCOMPARE(LeggiVoceProfiloPrivato(t, QStringLiteral("Strings"), QStringLiteral("0002")), QStringLiteral("uno"));
        QCOMPARE(LeggiVoceProfiloPrivato(t, QStringLiteral("Strings"), QStringLiteral("0003")), QStringLiteral("\"solo"));
    }

    void aValueIsCutAt511Characters()
    {
        const QString t = QStringLiteral("[S]\r\nk=") + QString(700, u'x') + QStringLiteral("\r\n");
        QCOMPARE(LeggiVoceProfiloPrivato(t, QStringLiteral("S"), QStringLiteral("k")).size(), 511);
    }

    void aKeyAbsentFromStringsYieldsEmptyAndTheBoxShowsNoText()
    {
        AmbienteProva a;
        QCOMPARE(TestoLingua(QStringLiteral("0999")), QString());
        MsgBox(TestoLingua(QStringLiteral("0999")), Msg::vbCritical);
        QCOMPARE(a.scatole.size(), size_t(1));
        QCOMPARE(a.scatole[0].testo, QString());
    }

    void testoLinguaFindsTheLanguageThroughLangSetting()
    {
        AmbienteProva a;
        QCOMPARE(TestoLingua(QStringLiteral("0002")), QStringLiteral("Coppie vivaci"));
        QCOMPARE(LinguaCorrente, QStringLiteral("Italiano"));
        QCOMPARE(TestoLingua(QStringLiteral("0004")), QStringLiteral("NO"));
    }

    void aMissingLanguageFileGivesEmptyTexts()
    {
        AmbienteProva a(false);
        QCOMPARE(TestoLingua(QStringLiteral("0001")), QString());
        QCOMPARE(LinguaCorrente, QString());
        QCOMPARE(PercorsoFileLingua(LinguaCorrente), CartellaProgramma() + QStringLiteral("\\.lng"));
    }

    void aFileOf64001BytesIsReadByLinesAndAnUnquotedValueLosesItsEnds()
    {
        AmbienteProva a;
        QByteArray testo = "[Strings]\r\n0001=ciao\r\n0002=\"bello\"\r\n[Altro]\r\n";
        while (testo.size() < 64001 - 2)
            testo += ';';
        testo += "\r\n";
        testo.truncate(64001);
        QCOMPARE(testo.size(), 64001);
        scriviLingua(a, QStringLiteral("Grande"), testo);
        LinguaCorrente = QStringLiteral("Grande");
        QCOMPARE(TestoLingua(QStringLiteral("0001")), QStringLiteral("ia"));
        QCOMPARE(TestoLingua(QStringLiteral("0002")), QStringLiteral("bello"));
    }

    void aFileOf64000BytesIsStillReadAsAProfile()
    {
        AmbienteProva a;
        QByteArray testo = "[Strings]\r\n0001=ciao\r\n";
        testo += QByteArray(64000 - testo.size(), ';');
        QCOMPARE(testo.size(), 64000);
        scriviLingua(a, QStringLiteral("Limite"), testo);
        LinguaCorrente = QStringLiteral("Limite");
        QCOMPARE(TestoLingua(QStringLiteral("0001")), QStringLiteral("ciao"));
    }

    void theLineReaderLetsAShorterKeyMatchEarly()
    {
        AmbienteProva a;
        QByteArray testo = "[FormX]\r\nLabel1.CaptionLunga=\"no\"\r\nLabel1.Caption=\"si\"\r\n";
        testo += QByteArray(65000, ';');
        AmbienteProva::Scrivi(a.Programma() + QStringLiteral("/x.ini"), testo);
        QCOMPARE(LeggiVoce(CartellaProgramma() + QStringLiteral("\\x.ini"), QStringLiteral("FormX"),
                           QStringLiteral("Label1.Caption")),
                 QStringLiteral("nga=\"no"));
    }

    void twoLanguagesDifferingOnlyInCaseAreDistinctEntriesAndOnlyTheExactOneIsTicked()
    {
        AmbienteProva a;
        scriviLingua(a, QStringLiteral("italiano"), "[Strings]\r\n0002=x\r\n");
        const QStringList voci = ElencoLingue();
        QVERIFY(voci.contains(QStringLiteral("Italiano")));
        QVERIFY(voci.contains(QStringLiteral("italiano")));
        QCOMPARE(voci.filter(QRegularExpression(QStringLiteral("^italiano$"), QRegularExpression::CaseInsensitiveOption)).size(), 2);
        QCOMPARE(voci[IndiceLinguaSpuntata(voci, QStringLiteral("Italiano"))], QStringLiteral("Italiano"));
        QCOMPARE(voci[IndiceLinguaSpuntata(voci, QStringLiteral("italiano"))], QStringLiteral("italiano"));
        QCOMPARE(IndiceLinguaSpuntata(voci, QStringLiteral("ITALIANO")), -1);
    }

    void languagesAreListedFromTheLngFilesBesideTheProgram()
    {
        AmbienteProva a;
        QCOMPARE(ElencoLingue(), QStringList({QStringLiteral("English"), QStringLiteral("Italiano")}));
        QCOMPARE(LinguaImpostata(), QStringLiteral("Italiano"));
    }

    void anArrayElementAndASingleControlOfTheSameNameShareNoKey()
    {
        AmbienteProva a;
        scriviLingua(a, QStringLiteral("Prova"),
                     "[FormProva]\r\nLabel1(0).Caption=elemento\r\nLabel1.Caption=singolo\r\n");
        LinguaCorrente = QStringLiteral("Prova");
        QWidget form;
        form.setObjectName(QStringLiteral("FormProva"));
        auto *elemento = new QLabel(QStringLiteral("design0"), &form);
        elemento->setObjectName(QStringLiteral("Label1"));
        ImpostaIndice(elemento, 0);
        auto *altroElemento = new QLabel(QStringLiteral("design1"), &form);
        altroElemento->setObjectName(QStringLiteral("Label1"));
        ImpostaIndice(altroElemento, 1);
        TraduciForm(&form);
        QCOMPARE(elemento->text(), QStringLiteral("elemento"));
        QCOMPARE(altroElemento->text(), QStringLiteral("design1"));

        QWidget form2;
        form2.setObjectName(QStringLiteral("FormProva"));
        auto *singolo = new QLabel(QStringLiteral("design"), &form2);
        singolo->setObjectName(QStringLiteral("Label1"));
        TraduciForm(&form2);
        QCOMPARE(singolo->text(), QStringLiteral("singolo"));
    }

    void aControlWithoutACaptionGetsNoError()
    {
        AmbienteProva a;
        scriviLingua(a, QStringLiteral("Prova"),
                     "[FormProva]\r\nText1.Caption=niente\r\nText1.ToolTipText=scrivi qui\r\nText1.Tag=@T\r\n");
        LinguaCorrente = QStringLiteral("Prova");
        QWidget form;
        form.setObjectName(QStringLiteral("FormProva"));
        auto *testo = new QLineEdit(QStringLiteral("dentro"), &form);
        testo->setObjectName(QStringLiteral("Text1"));
        TraduciForm(&form);
        QCOMPARE(testo->text(), QStringLiteral("dentro"));
        QCOMPARE(testo->toolTip(), QStringLiteral("scrivi qui"));
        QCOMPARE(TagDi(testo), QStringLiteral("@T"));
    }

    void aMissingKeyKeepsTheDesignTextOfAControlButEmptiesTheFormsCaption()
    {
        AmbienteProva a;
        scriviLingua(a, QStringLiteral("Prova"), "[FormProva]\r\n");
        LinguaCorrente = QStringLiteral("Prova");
        QWidget form;
        form.setObjectName(QStringLiteral("FormProva"));
        form.setWindowTitle(QStringLiteral("Titolo"));
        auto *l = new QLabel(QStringLiteral("design"), &form);
        l->setObjectName(QStringLiteral("Label1"));
        TraduciForm(&form);
        QCOMPARE(l->text(), QStringLiteral("design"));
        QCOMPARE(form.windowTitle(), QString());
    }

    void anEmptyFormCaptionStaysEmptyAndItsTagIsTakenEvenEmpty()
    {
        AmbienteProva a;
        scriviLingua(a, QStringLiteral("Prova"), "[FormProva]\r\nFormProva.Caption=Titolo\r\n");
        LinguaCorrente = QStringLiteral("Prova");
        QWidget form;
        form.setObjectName(QStringLiteral("FormProva"));
        ImpostaTag(&form, QStringLiteral("vecchio"));
        TraduciForm(&form);
        QCOMPARE(form.windowTitle(), QString());
        QCOMPARE(TagDi(&form), QString());
    }

    void menusToolTipsAndTabsAreTranslated()
    {
        AmbienteProva a;
        scriviLingua(a, QStringLiteral("Prova"),
                     "[FormProva]\r\nmnuFile.Caption=&Archivio\r\nmnuEsci.Caption=Esci\r\n"
                     "Command1.ToolTipText=Premi\r\nTabStrip1.TabCaption(0)=Uno\r\nTabStrip1.TabCaption(1)=Due\r\n");
        LinguaCorrente = QStringLiteral("Prova");
        QWidget form;
        form.setObjectName(QStringLiteral("FormProva"));
        auto *menu = new QMenu(QStringLiteral("File"), &form);
        menu->setObjectName(QStringLiteral("mnuFile"));
        QAction *esci = menu->addAction(QStringLiteral("Exit"));
        esci->setObjectName(QStringLiteral("mnuEsci"));
        auto *pulsante = new QPushButton(QStringLiteral("Via"), &form);
        pulsante->setObjectName(QStringLiteral("Command1"));
        auto *schede = new QTabWidget(&form);
        schede->setObjectName(QStringLiteral("TabStrip1"));
        schede->addTab(new QWidget, QStringLiteral("a"));
        schede->addTab(new QWidget, QStringLiteral("b"));
        schede->addTab(new QWidget, QStringLiteral("c"));
        TraduciForm(&form);
        QCOMPARE(menu->title(), QStringLiteral("&Archivio"));
        QCOMPARE(esci->text(), QStringLiteral("Esci"));
        QCOMPARE(pulsante->toolTip(), QStringLiteral("Premi"));
        QCOMPARE(schede->tabText(0), QStringLiteral("Uno"));
        QCOMPARE(schede->tabText(1), QStringLiteral("Due"));
        QCOMPARE(schede->tabText(2), QString());
    }

    void choosingALanguageTranslatesEveryOpenFormAndIsWritten()
    {
        AmbienteProva a;
        Schermi::Registra(QStringLiteral("FormAvvio"), [] {
            auto *f = new Form(QStringLiteral("FormAvvio"), 6000, 4500);
            auto *b = new QPushButton(QStringLiteral("&Avvio"), f);
            b->setObjectName(QStringLiteral("Command1"));
            return f;
        });
        Form *f = Schermi::Carica(QStringLiteral("FormAvvio"));
        ScegliLingua(QStringLiteral("English"));
        QCOMPARE(f->findChild<QPushButton *>(QStringLiteral("Command1"))->text(), QStringLiteral("&Start"));
        QCOMPARE(LinguaCorrente, QStringLiteral("English"));
        QCOMPARE(LinguaImpostata(), QStringLiteral("English"));
        QVERIFY(AmbienteProva::Leggi(a.Programma() + QStringLiteral("/LangSetting.ini")).contains("CurrentLanguage=English\r\n"));
        Schermi::ScaricaTuttiPerProve();
    }

    // --- an installed game: the program's folder is not the user's -----------

    void aLanguageChosenWithAReadOnlyProgramFolderIsKeptInTheUsersCopy()
    {
        AmbienteProva a;
        const QByteArray delProgramma = AmbienteProva::Leggi(a.Programma() + QStringLiteral("/LangSetting.ini"));
        // Every write into the program's folder is refused, as under /usr/lib.
        ImpostaGuastoScritturaPerProve([&](FaseScrittura, const QString &percorso) {
            return percorso.startsWith(a.Programma());
        });
        ScegliLingua(QStringLiteral("English"));
        ImpostaGuastoScritturaPerProve({});
        QCOMPARE(AmbienteProva::Leggi(a.Programma() + QStringLiteral("/LangSetting.ini")), delProgramma);
        const QString utente = a.Casa() + QStringLiteral("/.config/coppie-vivaci/LangSetting.ini");
        QCOMPARE(PercorsoImpostazioneLinguaUtente(), utente);
        QCOMPARE(AmbienteProva::Leggi(utente), QByteArray("[Language]\r\nCurrentLanguage=English\r\n"));
        // The next start reads the user's copy first.
        LinguaCorrente.clear();
        QCOMPARE(LinguaImpostata(), QStringLiteral("English"));
        QCOMPARE(TestoLingua(QStringLiteral("0004")), QStringLiteral("NO"));
        QCOMPARE(LinguaCorrente, QStringLiteral("English"));
        QCOMPARE(IndiceLinguaSpuntata(ElencoLingue(), LinguaImpostata()), int(ElencoLingue().indexOf(QStringLiteral("English"))));
    }

    void onceTheUsersCopyExistsItIsTheOneWritten()
    {
        AmbienteProva a;
        const QString utente = a.Casa() + QStringLiteral("/.config/coppie-vivaci/LangSetting.ini");
        AmbienteProva::Scrivi(utente, "[Language]\r\nCurrentLanguage=English\r\n");
        const QByteArray delProgramma = AmbienteProva::Leggi(a.Programma() + QStringLiteral("/LangSetting.ini"));
        QCOMPARE(LinguaImpostata(), QStringLiteral("English"));
        ScegliLingua(QStringLiteral("Italiano"));
        QCOMPARE(AmbienteProva::Leggi(utente), QByteArray("[Language]\r\nCurrentLanguage=Italiano\r\n"));
        QCOMPARE(AmbienteProva::Leggi(a.Programma() + QStringLiteral("/LangSetting.ini")), delProgramma);
        QCOMPARE(LinguaImpostata(), QStringLiteral("Italiano"));
    }

    void aWritableProgramFolderKeepsTheChoiceBesideTheProgramAndMakesNoUserCopy()
    {
        AmbienteProva a;
        ScegliLingua(QStringLiteral("English"));
        QVERIFY(AmbienteProva::Leggi(a.Programma() + QStringLiteral("/LangSetting.ini")).contains("CurrentLanguage=English\r\n"));
        QVERIFY(!QFileInfo::exists(a.Casa() + QStringLiteral("/.config/coppie-vivaci")));
    }

    void scriviVoceReplacesAKeyOrAddsItToItsSection()
    {
        QString t = QStringLiteral("[Language]\r\nCurrentLanguage=Italiano\r\n[Altro]\r\nx=1\r\n");
        t = ScriviVoceProfiloPrivato(t, QStringLiteral("language"), QStringLiteral("currentlanguage"), QStringLiteral("English"));
        QCOMPARE(t, QStringLiteral("[Language]\r\ncurrentlanguage=English\r\n[Altro]\r\nx=1\r\n"));
        t = ScriviVoceProfiloPrivato(t, QStringLiteral("Altro"), QStringLiteral("y"), QStringLiteral("2"));
        QCOMPARE(t, QStringLiteral("[Language]\r\ncurrentlanguage=English\r\n[Altro]\r\nx=1\r\ny=2\r\n"));
        t = ScriviVoceProfiloPrivato(QString(), QStringLiteral("Language"), QStringLiteral("CurrentLanguage"), QStringLiteral("Deutsch"));
        QCOMPARE(t, QStringLiteral("[Language]\r\nCurrentLanguage=Deutsch\r\n"));
    }
};

QTEST_MAIN(TestLingua)
#include "test_lingua.moc"
