#pragma once

#include <QPointer>
#include <QVector>
#include <QWidget>

#include <memory>

// Keeps the design geometry of every control of one form and scales the
// controls by the ratio between the form's size and its design size. Scaling
// always starts from the stored design values, so no rounding builds up.
class clsResize
{
public:
    QWidget *SourceForm() const { return form; }
    void setSourceForm(QWidget *f) { form = f; }

    void ReInitialise() { StoreControlSizes(); }
    void SizeFormToScreen(quint8 percent);
    void ResizeControls();

    // How many times a window was locked against repainting; for tests.
    static int BlocchiFinestra();

    struct Controllo {
        QPointer<QWidget> control;
        qint32 Left = 0, Top = 0, Width = 0, Height = 0;
    };
    const QVector<Controllo> &Tabella() const { return tabella; }
    qint32 LarghezzaProgetto() const { return larghezza; }
    qint32 AltezzaProgetto() const { return altezza; }

private:
    void StoreControlSizes();

    QPointer<QWidget> form;
    qint32 larghezza = 0, altezza = 0;
    QVector<Controllo> tabella;
    bool primoUso = true;
};

// The one object of the whole process, always that of the form loaded last.
inline std::unique_ptr<clsResize> ResizeCondiviso;

// What every form does at load, after its translation: a new shared object
// that serves this form, which it sizes to that part of the screen.
void CreaResizeCondiviso(QWidget *form, quint8 percent = 75);

// The controls of a form, as its Controls collection: every named widget inside it.
QList<QWidget *> ControlliDelForm(QWidget *form);
