// The common dialogs: what each asks, what comes back, and the odd corners
// kept from the old dialogs, through the seam and through Qt's real dialogs.

#include "AmbienteProva.h"

#include "platform/CommDlgs.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

namespace {
const QString Nul(QChar(0));

QString tuttiNul() { return QString(LunghezzaTitoloFile, QChar(0)); }

// A real dialog, acted on from inside its own loop: `azione` runs once the
// loop is going and must end it (accept or reject).
template <typename D>
void dentroIlDialogo(std::function<void(D *)> azione)
{
    ImpostaOsservatoreDialoghi([azione](QWidget *w) {
        QTimer::singleShot(0, w, [w, azione] {
            auto *d = qobject_cast<D *>(w);
            if (!d) {
                qobject_cast<QDialog *>(w)->reject();
                return;
            }
            azione(d);
            if (d->isVisible())
                d->reject(); // never leave a test waiting in the loop
        });
    });
}
} // namespace

class TestCommDlgs : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteProva> amb;

    QString ii() const { return amb->Radice() + QStringLiteral("/tesselo/dati/ii"); }

private slots:
    void init()
    {
        amb = std::make_unique<AmbienteProva>();
        QDir().mkpath(ii());
        NomeFileScelto.clear();
    }
    void cleanup()
    {
        ImpostaOsservatoreDialoghi({});
        amb.reset();
    }

    // --- files, through the seam

    void aFileDialogRecordsWhatItWasAskedWithFilterIndexOneAndTheMappedFolder()
    {
        amb->risposteDialoghi << RispostaDialogo::Annulla();
        ScegliFile(nullptr, ModoApri, QStringLiteral("Open"), QString(),
                   FiltroFile({QString(), QStringLiteral("*.agg"), QStringLiteral("Tutti i files"), QStringLiteral("*.*")}),
                   QStringLiteral("C:\\IMPOSTAZIONIPROGRAMMILOREA\\Tesselo\\DATI\\ii\\"), QStringLiteral("agg"));
        QCOMPARE(amb->dialoghi.size(), size_t(1));
        const RichiestaDialogo &r = amb->dialoghi[0];
        QCOMPARE(r.tipo, TipoDialogo::File);
        QCOMPARE(r.modo, ModoApri);
        QCOMPARE(r.titolo, QStringLiteral("Open"));
        QCOMPARE(r.nomeIniziale, QString());
        QCOMPARE(r.filtro, (QStringList{QString(), QStringLiteral("*.agg"), QStringLiteral("Tutti i files"),
                                       QStringLiteral("*.*")}));
        QCOMPARE(r.indiceFiltro, 1);
        QCOMPARE(r.cartella, QStringLiteral("C:\\IMPOSTAZIONIPROGRAMMILOREA\\Tesselo\\DATI\\ii\\"));
        // The data tree's path in any letter case opens on the real local folder.
        QCOMPARE(QDir::fromNativeSeparators(r.cartellaLocale), ii() + u'/');
        QCOMPARE(r.estensione, QStringLiteral("agg"));
    }

    void theFilterIsMadeOfItemsEachEndedByANul()
    {
        QCOMPARE(FiltroFile({QStringLiteral("*.swf"), QStringLiteral("*.swf"), QStringLiteral("Tutti i files"),
                             QStringLiteral("*.*")}),
                 QStringLiteral("*.swf") + Nul + QStringLiteral("*.swf") + Nul + QStringLiteral("Tutti i files") + Nul
                     + QStringLiteral("*.*") + Nul);
        QCOMPARE(FiltroFile({QString(), QStringLiteral("*.ass")}), Nul + QStringLiteral("*.ass") + Nul);
    }

    void aCancelledSaveDialogGivesAnEmptyResultAndATitleOfNulsOnly()
    {
        NomeFileScelto = QStringLiteral("vecchio");
        amb->risposteDialoghi << RispostaDialogo::Annulla();
        const QString r = ScegliFile(nullptr, ModoSalva, QStringLiteral("Salva"), QString(),
                                     FiltroFile({QString(), QStringLiteral("*.agg")}), ii(), QStringLiteral("agg"));
        QCOMPARE(r, QString());
        QCOMPARE(NomeFileScelto.size(), 255);
        QCOMPARE(NomeFileScelto, tuttiNul());
    }

    void aChosenFileGivesItsPathAndItsTitleFollowedByNulsTo255()
    {
        AmbienteProva::Scrivi(ii() + QStringLiteral("/animali.agg"), "x");
        amb->risposteDialoghi << RispostaDialogo::File(QStringLiteral("animali.agg"));
        const QString r = ScegliFile(nullptr, ModoApri, QStringLiteral("Open"), QString(),
                                     FiltroFile({QString(), QStringLiteral("*.agg")}), ii(), QStringLiteral("agg"));
        QCOMPARE(QDir::fromNativeSeparators(r), ii() + QStringLiteral("/animali.agg"));
        QCOMPARE(NomeFileScelto.size(), 255);
        QVERIFY(NomeFileScelto.startsWith(QStringLiteral("animali.agg") + Nul));
        QCOMPARE(NomeFileScelto.mid(11), QString(255 - 11, QChar(0)));
        // The callers put it behind a folder: the path functions stop at the first NUL.
        QCOMPARE(MappaPercorso(QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\ii\\") + NomeFileScelto),
                 ii() + QStringLiteral("/animali.agg"));
    }

    void theDefaultExtensionIsAddedOnlyWhenTheNameHasNone_data()
    {
        QTest::addColumn<QString>("digitato");
        QTest::addColumn<QString>("atteso");
        QTest::newRow("no extension") << "prova" << "prova.agg";
        QTest::newRow("its own extension") << "prova.txt" << "prova.txt";
        QTest::newRow("the same extension") << "prova.agg" << "prova.agg";
    }
    void theDefaultExtensionIsAddedOnlyWhenTheNameHasNone()
    {
        QFETCH(QString, digitato);
        QFETCH(QString, atteso);
        amb->risposteDialoghi << RispostaDialogo::File(digitato);
        const QString r = ScegliFile(nullptr, ModoSalva, QStringLiteral("Salva"), QString(),
                                     FiltroFile({QString(), QStringLiteral("*.agg")}), ii(), QStringLiteral("agg"));
        QCOMPARE(QDir::fromNativeSeparators(r), ii() + u'/' + atteso);
        QVERIFY(NomeFileScelto.startsWith(atteso + Nul));
    }

    void theOpenDialogRefusesAFileThatDoesNotExistAndStaysOpen()
    {
        AmbienteProva::Scrivi(ii() + QStringLiteral("/c.agg"), "x");
        amb->risposteDialoghi << RispostaDialogo::File(QStringLiteral("manca.agg"))
                              << RispostaDialogo::File(QStringLiteral("c.agg"));
        const QString r = ScegliFile(nullptr, ModoApri, QStringLiteral("Open"), QString(),
                                     FiltroFile({QString(), QStringLiteral("*.agg")}), ii(), QStringLiteral("agg"));
        QCOMPARE(QDir::fromNativeSeparators(r), ii() + QStringLiteral("/c.agg"));
        QCOMPARE(amb->dialoghi.size(), size_t(2));
        QCOMPARE(amb->dialoghi[1].rifiutati, QStringList{QStringLiteral("manca.agg")});
    }

    void theSaveDialogAsksBeforeReplacingAFileAndNoKeepsItOpen()
    {
        AmbienteProva::Scrivi(ii() + QStringLiteral("/c.agg"), "x");
        amb->risposteDialoghi << RispostaDialogo::File(QStringLiteral("c.agg"), false)
                              << RispostaDialogo::File(QStringLiteral("c.agg"), true);
        const QString r = ScegliFile(nullptr, ModoSalva, QStringLiteral("Salva"), QString(),
                                     FiltroFile({QString(), QStringLiteral("*.agg")}), ii(), QStringLiteral("agg"));
        QCOMPARE(QDir::fromNativeSeparators(r), ii() + QStringLiteral("/c.agg"));
        QCOMPARE(amb->dialoghi.size(), size_t(2));
        QCOMPARE(amb->dialoghi[1].rifiutati, QStringList{QStringLiteral("c.agg")});
        // A new file needs no question.
        amb->dialoghi.clear();
        amb->risposteDialoghi << RispostaDialogo::File(QStringLiteral("nuovo.agg"), false);
        QVERIFY(!ScegliFile(nullptr, ModoSalva, QStringLiteral("Salva"), QString(), QString(), ii(), QStringLiteral("agg"))
                     .isEmpty());
        QCOMPARE(amb->dialoghi.size(), size_t(1));
    }

    void aDialogRefusedOverAndOverEndsAsACancel()
    {
        for (int i = 0; i < 30; ++i)
            amb->risposteDialoghi << RispostaDialogo::File(QStringLiteral("manca.agg"));
        QCOMPARE(ScegliFile(nullptr, ModoApri, QStringLiteral("Open"), QString(), QString(), ii(), QStringLiteral("agg")),
                 QString());
        QCOMPARE(amb->dialoghi.size(), size_t(20));
        QCOMPARE(NomeFileScelto, tuttiNul());
    }

    void aFileNameLongerThanTheBufferComesBackAsACancel()
    {
        // A path of 255 characters does not fit with its closing NUL.
        const QString cartella = amb->Casa() + u'/';
        const QString nome = QString(255 - cartella.size() - 4, u'n') + QStringLiteral(".agg");
        QCOMPARE((cartella + nome).size(), 255);
        amb->risposteDialoghi << RispostaDialogo::File(nome);
        const QString r = ScegliFile(nullptr, ModoSalva, QStringLiteral("Salva"), QString(), QString(), cartella,
                                     QStringLiteral("agg"));
        QCOMPARE(r, QString());
        QCOMPARE(NomeFileScelto, tuttiNul());
    }

    void aPathJustUnderTheLimitComesBackCutToTheNameBuffer()
    {
        const QString cartella = amb->Casa() + u'/';
        const QString nome = QString(254 - cartella.size() - 4, u'n') + QStringLiteral(".agg");
        QCOMPARE((cartella + nome).size(), 254);
        amb->risposteDialoghi << RispostaDialogo::File(nome);
        const QString r = ScegliFile(nullptr, ModoSalva, QStringLiteral("Salva"), QString(), QString(), cartella,
                                     QStringLiteral("agg"));
        QCOMPARE(r, (cartella + nome).left(250));
        QVERIFY(NomeFileScelto.startsWith(nome + Nul));
    }

    void anInitialNameIsGivenAsItStands()
    {
        ScegliFile(nullptr, ModoApri, QStringLiteral("Open"), QStringLiteral("*.swf"),
                   FiltroFile({QStringLiteral("*.swf"), QStringLiteral("*.swf"), QStringLiteral("Tutti i files"),
                               QStringLiteral("*.*")}),
                   QString(), QStringLiteral("swf"));
        QCOMPARE(amb->dialoghi.size(), size_t(1));
        QCOMPARE(amb->dialoghi[0].nomeIniziale, QStringLiteral("*.swf"));
        QCOMPARE(amb->dialoghi[0].cartellaLocale, QString());
    }

    // --- files, through Qt's real dialog

    void theRealOpenDialogIsQtsOwnWithThePairsAsFiltersTheFirstInForceAndOnlyExistingFiles()
    {
        ImpostaRispostaDialoghi({});
        QStringList filtri;
        QString scelto, titolo, cartella;
        bool nonNativo = false, esistenti = false, apri = false;
        dentroIlDialogo<QFileDialog>([&](QFileDialog *d) {
            filtri = d->nameFilters();
            scelto = d->selectedNameFilter();
            titolo = d->windowTitle();
            cartella = d->directory().absolutePath();
            nonNativo = d->testOption(QFileDialog::DontUseNativeDialog);
            esistenti = d->fileMode() == QFileDialog::ExistingFile;
            apri = d->acceptMode() == QFileDialog::AcceptOpen;
            d->reject();
        });
        const QString r = ScegliFile(nullptr, ModoApri, QStringLiteral("Open"), QString(),
                                     FiltroFile({QString(), QStringLiteral("*.agg"), QStringLiteral("Tutti i files"),
                                                 QStringLiteral("*.*")}),
                                     QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\ii\\"),
                                     QStringLiteral("agg"));
        QCOMPARE(r, QString());
        QCOMPARE(NomeFileScelto, tuttiNul());
        QCOMPARE(filtri, (QStringList{QStringLiteral("*.agg (*.agg)"), QStringLiteral("Tutti i files (*.*)")}));
        QCOMPARE(scelto, filtri.value(0));
        QCOMPARE(titolo, QStringLiteral("Open"));
        QCOMPARE(cartella, ii());
        QVERIFY(nonNativo);
        QVERIFY(esistenti);
        QVERIFY(apri);
    }

    void theRealSaveDialogAddsTheDefaultExtensionAndAsksBeforeReplacing()
    {
        ImpostaRispostaDialoghi({});
        bool chiedeSostituzione = false, salva = false;
        dentroIlDialogo<QFileDialog>([&](QFileDialog *d) {
            chiedeSostituzione = !d->testOption(QFileDialog::DontConfirmOverwrite);
            salva = d->acceptMode() == QFileDialog::AcceptSave;
            auto *nome = d->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            if (!nome)
                return;
            nome->setText(QStringLiteral("mio"));
            static_cast<QDialog *>(d)->accept(); // as the Save button does
        });
        const QString r = ScegliFile(nullptr, ModoSalva, QStringLiteral("Salva"), QString(),
                                     FiltroFile({QString(), QStringLiteral("*.agg")}), ii(), QStringLiteral("agg"));
        QVERIFY(chiedeSostituzione);
        QVERIFY(salva);
        QCOMPARE(QDir::fromNativeSeparators(r), ii() + QStringLiteral("/mio.agg"));
        QVERIFY(NomeFileScelto.startsWith(QStringLiteral("mio.agg") + Nul));
        QCOMPARE(NomeFileScelto.size(), 255);
    }

    // --- colours

    void theColourDialogNeverOpensOnTheColourInForceAndSetsTheControlOnOk()
    {
        QLabel l;
        ImpostaForeColor(&l, Colori::Rosso);
        amb->risposteDialoghi << RispostaDialogo::Colore(0x00FF00);
        QVERIFY(ScegliColore(nullptr, &l));
        QCOMPARE(amb->dialoghi.at(0).tipo, TipoDialogo::Colore);
        QCOMPARE(amb->dialoghi.at(0).coloreIniziale, 0.0);
        QCOMPARE(ForeColorDi(&l), double(0x00FF00));
        QCOMPARE(l.palette().color(QPalette::WindowText), QColor(0, 255, 0));
    }

    void aCancelledColourDialogChangesNothing()
    {
        QLabel l;
        ImpostaForeColor(&l, Colori::Rosso);
        amb->risposteDialoghi << RispostaDialogo::Annulla();
        QVERIFY(!ScegliColore(nullptr, &l));
        QCOMPARE(ForeColorDi(&l), double(Colori::Rosso));
    }

    void aControlNeverGivenAColourHasTheSystemsWindowText()
    {
        QLabel l;
        QCOMPARE(ForeColorDi(&l), Colori::TestoFinestra);
    }

    void theColourDialogOpenedTwiceHasForgottenTheCustomColoursOfTheFirst()
    {
        QLabel l;
        RispostaDialogo prima = RispostaDialogo::Colore(0x123456);
        prima.coloriPersonalizzati.fill(0xABCDEF);
        amb->risposteDialoghi << prima << RispostaDialogo::Annulla();
        QVERIFY(ScegliColore(nullptr, &l));
        QVERIFY(!ScegliColore(nullptr, &l));
        QCOMPARE(amb->dialoghi.size(), size_t(2));
        for (double c : amb->dialoghi[1].coloriPersonalizzati)
            QCOMPARE(c, 0.0);
    }

    void theRealColourDialogOpenedTwiceHasForgottenTheCustomColoursOfTheFirst()
    {
        ImpostaRispostaDialoghi({});
        QLabel l;
        ImpostaForeColor(&l, Colori::Rosso);
        QColor aperturaUno, aperturaDue, personaleDue;
        bool nonNativo = false;
        dentroIlDialogo<QColorDialog>([&](QColorDialog *d) {
            aperturaUno = d->currentColor();
            nonNativo = d->testOption(QColorDialog::DontUseNativeDialog);
            QColorDialog::setCustomColor(0, QColor(10, 20, 30)); // the person adds a custom colour
            d->setCurrentColor(QColor(0, 0, 255));
            d->accept();
        });
        QVERIFY(ScegliColore(nullptr, &l));
        QCOMPARE(ForeColorDi(&l), double(0xFF0000)); // blue, in the game's order
        QCOMPARE(aperturaUno, QColor(0, 0, 0));
        QVERIFY(nonNativo);
        dentroIlDialogo<QColorDialog>([&](QColorDialog *d) {
            aperturaDue = d->currentColor();
            personaleDue = QColorDialog::customColor(0);
            d->reject();
        });
        QVERIFY(!ScegliColore(nullptr, &l));
        QCOMPARE(ForeColorDi(&l), double(0xFF0000));
        QCOMPARE(aperturaDue, QColor(0, 0, 0)); // not the blue in force now
        QCOMPARE(personaleDue, QColor(0, 0, 0));
    }

    // --- fonts

    void theFontDialogStartsFromTheControlsStyleOnNoFace()
    {
        QLabel l;
        QFont f(QStringLiteral("Liberation Serif"));
        f.setPointSize(14);
        f.setBold(true);
        f.setUnderline(true);
        l.setFont(f);
        QVERIFY(!ScegliFont(nullptr, &l));
        const RichiestaDialogo &r = amb->dialoghi.at(0);
        QCOMPARE(r.tipo, TipoDialogo::Font);
        QVERIFY(r.grassetto);
        QVERIFY(!r.corsivo);
        QVERIFY(r.sottolineato);
        QCOMPARE(r.decimiPunto, 140);
        QCOMPARE(r.volto, QString());
        QCOMPARE(l.font().family(), QStringLiteral("Liberation Serif")); // a cancel changes nothing
    }

    void aFontOfTenAndAHalfPointsComesBackAsAWholeNumber_data()
    {
        QTest::addColumn<int>("decimi");
        QTest::addColumn<int>("punti");
        QTest::newRow("10.5") << 105 << 10;
        QTest::newRow("11.5") << 115 << 12;
        QTest::newRow("10.6") << 106 << 11;
        QTest::newRow("12") << 120 << 12;
    }
    void aFontOfTenAndAHalfPointsComesBackAsAWholeNumber()
    {
        QFETCH(int, decimi);
        QFETCH(int, punti);
        QLabel l;
        amb->risposteDialoghi << RispostaDialogo::Font(QStringLiteral("Liberation Sans"), decimi);
        QVERIFY(ScegliFont(nullptr, &l));
        QCOMPARE(l.font().pointSizeF(), double(punti));
        QCOMPARE(l.font().pointSize(), punti);
    }

    void onOkOnlyFaceSizeBoldItalicAndUnderlineComeBack()
    {
        QLabel l;
        QFont f(QStringLiteral("Liberation Serif"));
        f.setPointSize(20);
        f.setStrikeOut(false);
        f.setLetterSpacing(QFont::AbsoluteSpacing, 2);
        l.setFont(f);
        RispostaDialogo a = RispostaDialogo::Font(QStringLiteral("Comic Neue"), 160, true, true, true);
        a.barrato = true;
        amb->risposteDialoghi << a;
        QVERIFY(ScegliFont(nullptr, &l));
        QCOMPARE(l.font().family(), QStringLiteral("Comic Neue"));
        QCOMPARE(l.font().pointSize(), 16);
        QVERIFY(l.font().bold());
        QVERIFY(l.font().italic());
        QVERIFY(l.font().underline());
        QVERIFY(!l.font().strikeOut());
        QCOMPARE(l.font().letterSpacing(), 2.0);
    }

    void theRealFontDialogIsQtsOwnWithNoOwnerAndGivesBackFaceAndSize()
    {
        ImpostaRispostaDialoghi({});
        QLabel l;
        QFont f(QStringLiteral("Liberation Serif"));
        f.setPointSize(30);
        f.setItalic(true);
        l.setFont(f);
        bool senzaProprietario = false, nonNativo = false, corsivoIniziale = false;
        QString voltoIniziale;
        QWidget finestra;
        dentroIlDialogo<QFontDialog>([&](QFontDialog *d) {
            senzaProprietario = d->parentWidget() == nullptr;
            nonNativo = d->testOption(QFontDialog::DontUseNativeDialog);
            corsivoIniziale = d->currentFont().italic();
            voltoIniziale = d->currentFont().family();
            QFont scelto(QStringLiteral("Liberation Sans"));
            scelto.setPointSize(14);
            d->setCurrentFont(scelto);
            d->accept();
        });
        QVERIFY(ScegliFont(&finestra, &l));
        QVERIFY(senzaProprietario);
        QVERIFY(nonNativo);
        QVERIFY(corsivoIniziale);
        QVERIFY2(voltoIniziale != QStringLiteral("Liberation Serif"), qPrintable(voltoIniziale));
        QCOMPARE(l.font().family(), QStringLiteral("Liberation Sans"));
        QCOMPARE(l.font().pointSize(), 14);
        QVERIFY(!l.font().italic());
    }

    // --- bytes to text

    void textFromBytesStopsAtTheFirstZero_data()
    {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<QString>("testo");
        QTest::newRow("zero inside") << QByteArray("Arial\0\0xyz", 10) << "Arial";
        QTest::newRow("no zero") << QByteArray("Comic Neue") << "Comic Neue";
        QTest::newRow("zero first") << QByteArray("\0Arial", 6) << "";
        QTest::newRow("code page") << QByteArray("Caf\xE8\0", 5) << QString::fromUtf8("Cafè");
        QTest::newRow("empty") << QByteArray() << "";
    }
    void textFromBytesStopsAtTheFirstZero()
    {
        QFETCH(QByteArray, byte);
        QFETCH(QString, testo);
        QCOMPARE(TestoDaByte(byte), testo);
    }
};

QTEST_MAIN(TestCommDlgs)
#include "test_comm_dlgs.moc"
