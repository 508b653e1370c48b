#include "board/FrameUscitaTavola.h"


#include "lang/modLanguageSupport.h"
#include "platform/Caratteri.h"
#include "platform/Colori.h"
#include "platform/Controlli.h"
#include "platform/CursoreGioco.h"
#include "platform/Puntatore.h"
#include "platform/Twips.h"

#include <QFontMetricsF>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>

using namespace FinestraUscita;

PulsanteGrafico::PulsanteGrafico(QWidget *parent) : QPushButton(parent)
{
    setMouseTracking(true);
    setAutoDefault(false);
    setFlat(true);
    setAutoFillBackground(true);
    ImpostaColore(ColoreRiposo);
}

void PulsanteGrafico::ImpostaColore(double c)
{
    colore = c;
    QPalette p = palette();
    p.setColor(QPalette::Button, ColoreDaNumero(c));
    p.setColor(QPalette::Window, ColoreDaNumero(c));
    setPalette(p);
    update();
}

void PulsanteGrafico::mouseMoveEvent(QMouseEvent *e)
{
    QPushButton::mouseMoveEvent(e);
    emit MouseMove();
}

namespace {
void colora(QWidget *w, double c)
{
    QPalette p = w->palette();
    p.setColor(QPalette::Window, ColoreDaNumero(c));
    w->setPalette(p);
    w->setAutoFillBackground(true);
}

Etichetta *etichetta(QWidget *genitore, const QString &nome, const QString &accessibile)
{
    auto *e = new Etichetta(genitore);
    e->setObjectName(nome);
    e->setAccessibleName(accessibile);
    e->setMouseTracking(true);
    return e;
}
} // namespace

FrameUscitaTavola::FrameUscitaTavola(QWidget *form) : QFrame(form)
{
    setObjectName(QStringLiteral("FrameUscita"));
    setAccessibleName(QStringLiteral("FrameUscita"));
    setFrameShape(QFrame::Box);
    setMouseTracking(true);
    setAutoFillBackground(true);
    ScriviGeometria(this, {0, 0, 8055, 4455});

    CommandNo = new PulsanteGrafico(this);
    CommandNo->setObjectName(QStringLiteral("CommandNo"));
    ScriviGeometria(CommandNo, {240, 1320, 3615, 1935});
    CommandSi = new PulsanteGrafico(this);
    CommandSi->setObjectName(QStringLiteral("CommandSi"));
    ScriviGeometria(CommandSi, {4080, 1320, 3615, 1935});

    PictureNo = etichetta(this, QStringLiteral("PictureNo"), QStringLiteral("NO"));
    ScriviGeometria(PictureNo, {360, 1560, 3375, 1575});
    PictureSi = etichetta(this, QStringLiteral("PictureSi"), QStringLiteral("SÌ"));
    ScriviGeometria(PictureSi, {4200, 1560, 3375, 1575});
    ImageNo = etichetta(PictureNo, QStringLiteral("ImageNo"), QStringLiteral("NO"));
    ImageSi = etichetta(PictureSi, QStringLiteral("ImageSi"), QStringLiteral("SÌ"));
    ImageNo->setPixmap(QIcon(QStringLiteral(":/board/no.svg")).pixmap(128, 128));
    ImageSi->setPixmap(QIcon(QStringLiteral(":/board/si.svg")).pixmap(128, 128));
    ImageNo->setScaledContents(true);
    ImageSi->setScaledContents(true);
    LabelNo = etichetta(PictureNo, QStringLiteral("LabelNo"), QStringLiteral("NO"));
    LabelSi = etichetta(PictureSi, QStringLiteral("LabelSi"), QStringLiteral("SÌ"));
    for (QLabel *l : {static_cast<QLabel *>(LabelNo), static_cast<QLabel *>(LabelSi)}) {
        l->setAlignment(Qt::AlignCenter);
        l->setFont(FontGioco(QStringLiteral("Comic Sans MS"), 12, true));
    }
    ScriviGeometria(ImageNo, {120, 120, 1335, 1335});
    ScriviGeometria(ImageSi, {120, 120, 1335, 1335});
    ScriviGeometria(LabelNo, {1560, 360, 1695, 855});
    ScriviGeometria(LabelSi, {1560, 360, 1695, 855});

    LabelDimensionaFont = new QLabel(QStringLiteral("dimensiona font"), form);
    LabelDimensionaFont->setObjectName(QStringLiteral("LabelDimensionaFont"));
    LabelDimensionaFont->setFont(LabelNo->font());
    LabelDimensionaFont->hide();
    LabelDimensionaFont->setProperty("TestoDalProgramma", true); // a hidden measure, never read by a player

    connect(CommandSi, &QPushButton::clicked, this, [this] { if (Si) Si(); });
    connect(CommandNo, &QPushButton::clicked, this, [this] { if (No) No(); });
    connect(CommandSi, &PulsanteGrafico::MouseMove, this, [this] { colori.MouseMoveSi(); mostraColori(); });
    connect(CommandNo, &PulsanteGrafico::MouseMove, this, [this] { colori.MouseMoveNo(); mostraColori(); });
    // The whole face acts as its button.
    for (Etichetta *e : {PictureSi, ImageSi, LabelSi}) {
        connect(e, &Etichetta::Click, CommandSi, &QPushButton::click);
        connect(e, &Etichetta::MouseMove, CommandSi, &PulsanteGrafico::MouseMove);
    }
    for (Etichetta *e : {PictureNo, ImageNo, LabelNo}) {
        connect(e, &Etichetta::Click, CommandNo, &QPushButton::click);
        connect(e, &Etichetta::MouseMove, CommandNo, &PulsanteGrafico::MouseMove);
    }
    hide();
}

void FrameUscitaTavola::mostraColori()
{
    CommandSi->ImpostaColore(colori.CommandSi);
    CommandNo->ImpostaColore(colori.CommandNo);
    colora(PictureSi, colori.PictureSi);
    colora(PictureNo, colori.PictureNo);
}

void FrameUscitaTavola::mouseMoveEvent(QMouseEvent *e)
{
    QFrame::mouseMoveEvent(e);
    // A move over a face comes up here too; only the frame itself counts.
    if (childAt(e->position().toPoint()))
        return;
    colori.MouseMoveCornice();
    mostraColori();
}

// The height, in pixels, a centred line of `testo` needs so that no part of
// its glyphs (an accent above the capitals, a tail below the line) is cut.
static double altezzaInchiostro(const QFont &font, const QString &testo)
{
    const QFontMetricsF fm(font);
    const QRectF inchiostro = fm.tightBoundingRect(testo);
    // The line's box is centred: the ink may stand out of it above or below.
    const double sopra = -inchiostro.top() - fm.ascent();
    const double sotto = inchiostro.bottom() - fm.descent();
    return fm.height() + 2 * std::max({0.0, sopra, sotto}) + 2; // a pixel to spare at each side
}

double FrameUscitaTavola::adatta(double partenza, double larghezzaTwips, double altezzaTwips)
{
    const QFont base = LabelDimensionaFont->font();
    // Both answers take the size found, so both must fit its height.
    const QStringList risposte = {LabelSi->text(), LabelNo->text()};
    return AdattaCarattere(
        LabelDimensionaFont->text(), partenza, larghezzaTwips,
        [&](const QString &t, double p) {
            QFont f = base;
            f.setPointSizeF(p);
            double alto = 0;
            for (const QString &r : risposte)
                if (!r.isEmpty())
                    alto = std::max(alto, altezzaInchiostro(f, r));
            return QSizeF(QFontMetricsF(f).horizontalAdvance(t) * TwipsPerPixel, alto * TwipsPerPixel);
        },
        altezzaTwips);
}

// Each answer's label spans the whole height of its face, centred on it as
// the label of the design is: on a screen wider in proportion than the
// design's, the face is what bounds the letters' height.
void FrameUscitaTavola::etichetteAltezzaFaccia()
{
    for (Etichetta *l : {LabelNo, LabelSi}) {
        GeometriaTwips g = LeggiGeometria(l);
        g.Top = 0;
        g.Height = LeggiGeometria(l->parentWidget()).Height;
        ScriviGeometria(l, g);
    }
}

void FrameUscitaTavola::PresentaFinestraUscita(bool puntatoreSistema, double coloreForm)
{
    QWidget *form = parentWidget();
    const GeometriaTwips gf = LeggiGeometria(form);
    GeometriaTwips g = LeggiGeometria(this);
    g.Top = std::trunc((std::round(gf.Height) - std::round(g.Height)) / 2);
    g.Left = std::trunc((std::round(gf.Width) - std::round(g.Width)) / 2);
    ScriviGeometria(this, g);
    raise();
    colora(this, coloreForm);
    colori = FinestraUscita::Colori{};
    CommandSi->ImpostaColore(ColoreRiposo);
    CommandNo->ImpostaColore(ColoreRiposo);
    LabelSi->setText(TestoLingua(QStringLiteral("0005")));
    LabelNo->setText(TestoLingua(QStringLiteral("0004")));
    CommandSi->setAccessibleName(LabelSi->text().isEmpty() ? QStringLiteral("CommandSi") : LabelSi->text());
    CommandNo->setAccessibleName(LabelNo->text().isEmpty() ? QStringLiteral("CommandNo") : LabelNo->text());
    const QCursor grande = CursoreScelto(puntatoreSistema);
    for (QWidget *w : std::initializer_list<QWidget *>{CommandSi, CommandNo, ImageSi, PictureSi, ImageNo, LabelNo,
                                                       LabelSi, PictureNo})
        w->setCursor(puntatoreSistema ? QCursor(Qt::ArrowCursor) : grande);
    mostraColori();

    etichetteAltezzaFaccia();
    // First pass, from the size the measuring label has.
    LabelDimensionaFont->setText(CaptionPiuLunga(LabelSi->text(), LabelNo->text()));
    double punti = adatta(LabelDimensionaFont->font().pointSizeF(), LeggiGeometria(LabelNo).Width,
                          LeggiGeometria(LabelNo).Height);
    for (QLabel *l : {static_cast<QLabel *>(LabelNo), static_cast<QLabel *>(LabelSi)}) {
        QFont f = l->font();
        f.setPointSizeF(punti);
        l->setFont(f);
    }
    BloccaMouse();
    PortaMousePosizione();
    // The second pass decides.
    LabelDimensionaFont->setText(CaptionPiuLunga(LabelSi->text(), LabelNo->text()));
    punti = adatta(12, LeggiGeometria(LabelSi).Width, LeggiGeometria(LabelSi).Height);
    QFont fd = LabelDimensionaFont->font();
    fd.setPointSizeF(punti);
    LabelDimensionaFont->setFont(fd);
    for (QLabel *l : {static_cast<QLabel *>(LabelSi), static_cast<QLabel *>(LabelNo)}) {
        QFont f = l->font();
        f.setPointSizeF(punti);
        l->setFont(f);
    }
    show();
    mostraColori();
    CommandSi->setFocus();
}

void FrameUscitaTavola::BloccaMouse() { ConfinaPuntatore(QRect(mapToGlobal(QPoint(0, 0)), size())); }

void FrameUscitaTavola::SbloccaMouse() { LiberaPuntatore(); }

void FrameUscitaTavola::PortaMousePosizione()
{
    const GeometriaTwips g = LeggiGeometria(this);
    QPoint p = PosizionePortaMouse(int(std::round(g.Top)), int(std::round(g.Left)), int(std::round(g.Width)),
                                   int(std::round(g.Height)));
    // What the confinement does to a point outside it.
    const QRect r = RettangoloConfinamento();
    if (!r.isNull())
        p = QPoint(std::clamp(p.x(), r.left(), r.right()), std::clamp(p.y(), r.top(), r.bottom()));
    SpostaPuntatore(p);
}
