#include "platform/Controlli.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace {
// A form at its design size of 6000 by 4500 twips (400 by 300 pixels).
struct FormDiProva {
    QWidget form;
    QLabel *etichetta;
    QPushButton *pulsante;
    Linea *linea;

    FormDiProva()
    {
        form.setObjectName(QStringLiteral("FormProva"));
        form.resize(400, 300);
        etichetta = new QLabel(QStringLiteral("Ciao"), &form);
        etichetta->setObjectName(QStringLiteral("Label1"));
        ScriviGeometria(etichetta, {600, 300, 1500, 450});
        pulsante = new QPushButton(QStringLiteral("Via"), &form);
        pulsante->setObjectName(QStringLiteral("Command1"));
        ScriviGeometria(pulsante, {3000, 1500, 1500, 750});
        linea = new Linea(&form);
        linea->setObjectName(QStringLiteral("Line1"));
        linea->imposta(150, 150, 3000, 1500);
    }
};
} // namespace

class TestResize : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { ImpostaSchermoPerProve(QRect()); }

    void sizeFormToScreen75OnA1024By768Screen()
    {
        ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
        FormDiProva f;
        clsResize r;
        r.setSourceForm(&f.form);
        r.SizeFormToScreen(75);
        const GeometriaTwips g = LeggiGeometria(&f.form);
        QCOMPARE(g.Width, 11520.0);
        QCOMPARE(g.Height, 8640.0);
        QCOMPARE(g.Left, 1920.0);
        QCOMPARE(g.Top, 1440.0);
    }

    void controlsScaleFromTheirDesignValues()
    {
        ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
        FormDiProva f;
        clsResize r;
        r.setSourceForm(&f.form);
        r.SizeFormToScreen(75); // 768 by 576: 1.92 across, 1.92 down
        const GeometriaTwips g = LeggiGeometria(f.pulsante);
        QCOMPARE(g.Left, double(TwipsDaPixel(qRound(200 * 1.92))));
        QCOMPARE(g.Width, double(TwipsDaPixel(qRound(100 * 1.92))));
        QCOMPARE(g.Top, double(TwipsDaPixel(qRound(100 * 1.92))));
    }

    void aMinimisedFormIsNotTouchedAndARestoreScalesFromTheDesign()
    {
        FormDiProva f;
        clsResize r;
        r.setSourceForm(&f.form);
        r.ReInitialise();
        f.form.setWindowState(Qt::WindowMinimized);
        f.form.resize(800, 600);
        r.ResizeControls();
        QCOMPARE(f.pulsante->geometry(), QRect(200, 100, 100, 50));
        f.form.setWindowState(Qt::WindowNoState);
        r.ResizeControls();
        QCOMPARE(f.pulsante->geometry(), QRect(400, 200, 200, 100));
    }

    void twoResizesInARowEndLikeOne()
    {
        FormDiProva uno, due;
        clsResize r1, r2;
        r1.setSourceForm(&uno.form);
        r1.ReInitialise();
        r2.setSourceForm(&due.form);
        r2.ReInitialise();
        uno.form.resize(533, 377);
        r1.ResizeControls();
        uno.form.resize(800, 600);
        r1.ResizeControls();
        due.form.resize(800, 600);
        r2.ResizeControls();
        QCOMPARE(uno.pulsante->geometry(), due.pulsante->geometry());
        QCOMPARE(uno.etichetta->geometry(), due.etichetta->geometry());
        QCOMPARE(uno.linea->X2, due.linea->X2);
    }

    void aTagOfAtTOnlyMovesVertically()
    {
        FormDiProva f;
        ImpostaTag(f.pulsante, QStringLiteral("@T"));
        clsResize r;
        r.setSourceForm(&f.form);
        r.ReInitialise();
        f.form.resize(800, 600);
        r.ResizeControls();
        QCOMPARE(f.pulsante->geometry(), QRect(200, 200, 100, 50));
    }

    void aTagNotBeginningWithAtCountsAsTheDefault()
    {
        FormDiProva f;
        ImpostaTag(f.pulsante, QStringLiteral("x"));
        ImpostaTag(f.etichetta, QStringLiteral("@l,w"));
        clsResize r;
        r.setSourceForm(&f.form);
        r.ReInitialise();
        f.form.resize(800, 600);
        r.ResizeControls();
        QCOMPARE(f.pulsante->geometry(), QRect(400, 200, 200, 100));
        QCOMPARE(f.etichetta->geometry(), QRect(80, 20, 200, 30));
    }

    void linesScaleThroughTheirEnds()
    {
        FormDiProva f;
        clsResize r;
        r.setSourceForm(&f.form);
        r.ReInitialise();
        f.form.resize(800, 900);
        r.ResizeControls();
        QCOMPARE(f.linea->X1, 300.0);
        QCOMPARE(f.linea->Y1, 450.0);
        QCOMPARE(f.linea->X2, 6000.0);
        QCOMPARE(f.linea->Y2, 4500.0);
    }

    void theFirstResizeOnlyRecords()
    {
        FormDiProva f;
        clsResize r;
        r.setSourceForm(&f.form);
        f.form.resize(800, 600);
        r.ResizeControls();
        QCOMPARE(f.pulsante->geometry(), QRect(200, 100, 100, 50));
        QCOMPARE(r.LarghezzaProgetto(), 12000);
    }

    void aFormWithoutAnyControlNeverLocksTheWindow()
    {
        QWidget vuoto;
        vuoto.resize(300, 200);
        clsResize r;
        r.setSourceForm(&vuoto);
        r.ReInitialise();
        const int prima = clsResize::BlocchiFinestra();
        vuoto.resize(600, 400);
        r.ResizeControls();
        r.SizeFormToScreen(75);
        QCOMPARE(clsResize::BlocchiFinestra(), prima);

        FormDiProva f;
        clsResize r2;
        r2.setSourceForm(&f.form);
        r2.ReInitialise();
        f.form.resize(600, 400);
        r2.ResizeControls();
        QCOMPARE(clsResize::BlocchiFinestra(), prima + 1);
    }
};

QTEST_MAIN(TestResize)
#include "test_resize.moc"
