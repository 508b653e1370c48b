#include "AmbienteProva.h"

#include "board/ElencoPremi.h"
#include "platform/Casuale.h"
#include "platform/media/Filmato.h"
#include "platform/media/ImmagineAnimata.h"

#include <QImage>
#include <QImageReader>
#include <QSet>

namespace {
// A backend for a kind the game doesn't play yet, as the SWF one will be.
class MotoreFinto final : public MotoreFilm
{
public:
    explicit MotoreFinto(QWidget *g) : vista(new QWidget(g)) {}
    bool Carica(const QString &f) override { return QFileInfo(f).size() > 3; }
    void Play() override { ++avvii; }
    void Stop() override {}
    void PrimoQuadro() override { ++primi; }
    QWidget *Vista() override { return vista; }
    QWidget *vista;
    static inline int avvii = 0, primi = 0;
};
} // namespace

// The reward's list of films, and the film and animated-image faces.
class TestPremioMedia : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<AmbienteProva> amb;

    static QStringList nomi(int n)
    {
        QStringList l;
        for (int i = 0; i < n; ++i)
            l << QStringLiteral("f%1.swf").arg(i);
        return l;
    }
    // A looping GIF of two one-pixel frames, black then white, written byte by byte.
    QString gifAnimata(const QString &nome)
    {
        const QString p = amb->Casa() + QLatin1Char('/') + nome;
        QByteArray b("GIF89a\x01\x00\x01\x00\x80\x00\x00", 13);
        b += QByteArray("\x00\x00\x00\xff\xff\xff", 6);
        b += QByteArray("\x21\xff\x0bNETSCAPE2.0\x03\x01\x00\x00\x00", 19);
        for (char primo : {'\x44', '\x4c'}) {
            b += QByteArray("\x21\xf9\x04\x00\x0a\x00\x00\x00", 8);
            b += QByteArray("\x2c\x00\x00\x00\x00\x01\x00\x01\x00\x00", 10);
            b += QByteArray("\x02\x02", 2) + primo + QByteArray("\x01\x00", 2);
        }
        b += '\x3b';
        AmbienteProva::Scrivi(p, b);
        return p;
    }

private slots:
    void init() { amb = std::make_unique<AmbienteProva>(); }
    void cleanup() { amb.reset(); }

    void oneFilmInTheFolderIsAlwaysChosen()
    {
        const ElencoPremi e = CompilaElencoPremi({QStringLiteral("."), QStringLiteral(".."), QStringLiteral("solo.swf")});
        QCOMPARE(e.Conteggio, qint16(1));
        for (int seme = 0; seme < 20; ++seme) {
            SeminaCasuale(seme);
            QVERIFY(FilmPremioEstratto(e).endsWith(QLatin1String("\\swf\\solo.swf")));
        }
    }

    void exactly101FilmsCanAllBeDrawn()
    {
        const ElencoPremi e = CompilaElencoPremi(nomi(101));
        QCOMPARE(e.Conteggio, qint16(101));
        QSet<QString> visti;
        SeminaCasuale(3);
        for (int i = 0; i < 5000 && visti.size() < 101; ++i)
            visti << FilmPremioEstratto(e);
        QCOMPARE(visti.size(), 101);
        QVERIFY(!visti.contains(QString()));
    }

    void beyond101TheCountGoesOnButNoLaterNameIsKept()
    {
        const ElencoPremi e = CompilaElencoPremi(nomi(130));
        QCOMPARE(e.Conteggio, qint16(102));
        QCOMPARE(e.Nomi[100], QStringLiteral("f100.swf"));
        // A draw of the missing place shows no film.
        bool vuoto = false;
        for (int seme = 0; seme < 2000 && !vuoto; ++seme) {
            SeminaCasuale(seme);
            vuoto = FilmPremioEstratto(e).isEmpty();
        }
        QVERIFY(vuoto);
    }

    void noFilmsGiveAnEmptyName()
    {
        const ElencoPremi e = CompilaElencoPremi({});
        QCOMPARE(e.Conteggio, qint16(0));
        QVERIFY(FilmPremioEstratto(e).endsWith(QLatin1String("\\swf\\")));
    }

    void theListingReadsTheProgramsSwfFolder()
    {
        AmbienteProva::Scrivi(amb->Programma() + QStringLiteral("/swf/a.swf"), "FWS");
        AmbienteProva::Scrivi(amb->Programma() + QStringLiteral("/swf/b.txt"), "x");
        QCOMPARE(ElencaFilmPremio(), QStringList({"a.swf"}));
    }

    void aFilmRestsOnItsFirstPictureUntilPlayed()
    {
        Filmato f;
        f.resize(50, 50);
        f.setMovie(gifAnimata(QStringLiteral("a.gif")));
        QCOMPARE(f.NomeMotore(), QStringLiteral("immagine animata"));
        QVERIFY(!f.InRiproduzione());
        f.Play();
        QVERIFY(f.InRiproduzione());
        f.StopPlay();
        QVERIFY(!f.InRiproduzione());
    }

    void aFileThatCannotBePlayedLeavesAnEmptyFace()
    {
        Filmato f;
        AmbienteProva::Scrivi(amb->Casa() + QStringLiteral("/rotto.swf"), "not a film at all");
        f.setMovie(amb->Casa() + QStringLiteral("/rotto.swf"));
        QVERIFY(f.NomeMotore().isEmpty());
        f.setMovie(amb->Casa() + QStringLiteral("/manca.swf"));
        QVERIFY(f.NomeMotore().isEmpty());
        f.setMovie(QString());
        QVERIFY(f.NomeMotore().isEmpty());
        f.Play();
        QVERIFY(amb->scatole.empty());
    }

    void aBackendRegisteredLaterTakesItsKindOfFile()
    {
        RegistraMotoreFilm({QStringLiteral("finto"),
                            [](const QByteArray &inizio, const QString &) { return inizio.startsWith("FWS"); },
                            [](QWidget *g) { return std::make_unique<MotoreFinto>(g); }});
        AmbienteProva::Scrivi(amb->Casa() + QStringLiteral("/film.swf"), "FWS\x08rest");
        Filmato f;
        f.setMovie(amb->Casa() + QStringLiteral("/film.swf"));
        QCOMPARE(f.NomeMotore(), QStringLiteral("finto"));
        f.StopPlay();
        f.Play();
        QCOMPARE(MotoreFinto::avvii, 1);
        QCOMPARE(MotoreFinto::primi, 1);
    }

    void theTestGifReallyHasTwoFrames()
    {
        QImageReader r(gifAnimata(QStringLiteral("c.gif")));
        QVERIFY(r.supportsAnimation());
        QCOMPARE(r.imageCount(), 2);
    }

    void anAnimatedImageKeepsItsPathUntilStarted()
    {
        ImmagineAnimata a;
        const QString p = gifAnimata(QStringLiteral("b.gif"));
        a.setFile(p);
        QCOMPARE(a.File(), p);
        QVERIFY(!a.Avviata());
        a.Avvia();
        QVERIFY(a.Avviata());
    }
};

QTEST_MAIN(TestPremioMedia)
#include "test_premio_media.moc"
