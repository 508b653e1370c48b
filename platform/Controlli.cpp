#include "platform/Controlli.h"

#include "platform/Colori.h"
#include "platform/Twips.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QVariant>

QString TagDi(const QObject *o) { return o->property("Tag").toString(); }
void ImpostaTag(QObject *o, const QString &tag) { o->setProperty("Tag", tag); }

bool HaIndice(const QObject *o) { return o->property("Index").isValid(); }
int IndiceDi(const QObject *o)
{
    const QVariant v = o->property("Index");
    return v.isValid() ? v.toInt() : -1;
}
void ImpostaIndice(QObject *o, int indice) { o->setProperty("Index", indice); }

double ForeColorDi(const QWidget *w)
{
    const QVariant v = w->property("ForeColor");
    return v.isValid() ? v.toDouble() : Colori::TestoFinestra;
}

void ImpostaForeColor(QWidget *w, double colore)
{
    w->setProperty("ForeColor", colore);
    // The old text colour of a container coloured none of the controls in it,
    // and Qt's palette would pass to them all: a container keeps the number only.
    if (!w->findChildren<QWidget *>(Qt::FindDirectChildrenOnly).isEmpty())
        return;
    QPalette p = w->palette();
    const QColor c = ColoreDaNumero(colore);
    for (auto ruolo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(ruolo, c);
    w->setPalette(p);
}

QString NomeControllo(const QObject *o)
{
    if (HaIndice(o))
        return o->objectName() + u'(' + QString::number(IndiceDi(o)) + u')';
    return o->objectName();
}

bool LeggiCaption(const QObject *o, QString *caption)
{
    if (auto *m = qobject_cast<const QMenu *>(o)) {
        *caption = m->title();
        return true;
    }
    if (auto *w = qobject_cast<const QWidget *>(o); w && w->isWindow()) {
        *caption = w->windowTitle();
        return true;
    }
    if (auto *l = qobject_cast<const QLabel *>(o)) {
        *caption = l->text();
        return true;
    }
    if (auto *b = qobject_cast<const QAbstractButton *>(o)) {
        *caption = b->text();
        return true;
    }
    if (auto *g = qobject_cast<const QGroupBox *>(o)) {
        *caption = g->title();
        return true;
    }
    if (auto *m = qobject_cast<const QMenu *>(o)) {
        *caption = m->title();
        return true;
    }
    if (auto *a = qobject_cast<const QAction *>(o)) {
        *caption = a->text();
        return true;
    }
    return false;
}

bool ScriviCaption(QObject *o, const QString &caption)
{
    if (auto *m = qobject_cast<QMenu *>(o)) {
        m->setTitle(caption);
        return true;
    }
    if (auto *w = qobject_cast<QWidget *>(o); w && w->isWindow()) {
        w->setWindowTitle(caption);
        return true;
    }
    if (auto *l = qobject_cast<QLabel *>(o)) {
        l->setText(caption);
        return true;
    }
    if (auto *b = qobject_cast<QAbstractButton *>(o)) {
        b->setText(caption);
        b->setAccessibleName(QString(caption).remove(u'&'));
        return true;
    }
    if (auto *g = qobject_cast<QGroupBox *>(o)) {
        g->setTitle(caption);
        return true;
    }
    if (auto *m = qobject_cast<QMenu *>(o)) {
        m->setTitle(caption);
        return true;
    }
    if (auto *a = qobject_cast<QAction *>(o)) {
        a->setText(caption);
        return true;
    }
    return false;
}

Linea::Linea(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    if (parent)
        setGeometry(parent->rect());
}

void Linea::imposta(double x1, double y1, double x2, double y2)
{
    X1 = x1;
    Y1 = y1;
    X2 = x2;
    Y2 = y2;
    if (parentWidget())
        setGeometry(parentWidget()->rect());
    update();
}

void Linea::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setPen(QPen(colore, spessore));
    p.drawLine(QPointF(X1 / TwipsPerPixel, Y1 / TwipsPerPixel), QPointF(X2 / TwipsPerPixel, Y2 / TwipsPerPixel));
}

FormaRettangolo::FormaRettangolo(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void FormaRettangolo::paintEvent(QPaintEvent *)
{
    if (!linea)
        return;
    QPainter p(this);
    const int s = qMax(1, spessore);
    QPen pen(colore, s);
    pen.setJoinStyle(Qt::MiterJoin);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(rect()).adjusted(s / 2.0, s / 2.0, -s / 2.0, -s / 2.0));
}

void Etichetta::mouseReleaseEvent(QMouseEvent *e)
{
    QLabel::mouseReleaseEvent(e);
    if (rect().contains(e->position().toPoint()))
        emit Click();
}

void Etichetta::mouseMoveEvent(QMouseEvent *e)
{
    QLabel::mouseMoveEvent(e);
    emit MouseMove();
}
