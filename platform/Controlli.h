#pragma once

#include <QString>
#include <QLabel>
#include <QWidget>

class QObject;

// What the game's forms ask of any control, whatever its kind: its text tag,
// its index in a control array, its caption. Controls carry the tag and index
// as properties "Tag" and "Index"; a control that is no array member has no
// "Index" at all.

QString TagDi(const QObject *o);
void ImpostaTag(QObject *o, const QString &tag);

bool HaIndice(const QObject *o);
int IndiceDi(const QObject *o); // -1 when no array member
void ImpostaIndice(QObject *o, int indice);

// A control's text colour, its old ForeColor, kept as the game's colour number
// and shown as the colour of its text (a control that holds other controls
// keeps the number only). A control never given one has the system's
// window-text colour.
double ForeColorDi(const QWidget *w);
void ImpostaForeColor(QWidget *w, double colore);

// The name a control goes by in the language files and in accessibility:
// "Label2(1)" for an array member, "Label2" for a single control.
QString NomeControllo(const QObject *o);

// The caption of a label, button, group, action, menu or form. False when the
// control has no caption.
bool LeggiCaption(const QObject *o, QString *caption);
bool ScriviCaption(QObject *o, const QString &caption);

// A line drawn on a form: X1, Y1, X2, Y2 in twips in its parent's space. It
// covers its parent and lets the pointer through.
class Linea final : public QWidget
{
    Q_OBJECT
public:
    explicit Linea(QWidget *parent);
    double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
    QColor colore = Qt::black;
    int spessore = 1;
    void imposta(double x1, double y1, double x2, double y2);

protected:
    void paintEvent(QPaintEvent *) override;
};

// A rectangle shape without fill that lets the pointer through, hidden until
// shown: the scanning frame on the boards and its sample in the settings.
// Its line can be switched off (the old BorderStyle 0) and the shape then
// draws nothing.
class FormaRettangolo final : public QWidget
{
public:
    explicit FormaRettangolo(QWidget *parent);
    int spessore = 1;
    QColor colore = Qt::black;
    bool linea = true;

protected:
    void paintEvent(QPaintEvent *) override;
};

// A label that answers clicks and pointer moves, as the old labels did.
class Etichetta : public QLabel
{
    Q_OBJECT
public:
    using QLabel::QLabel;

signals:
    void Click();
    void MouseMove();

protected:
    void mouseReleaseEvent(QMouseEvent *e) override;
    void mouseMoveEvent(QMouseEvent *e) override;
};
