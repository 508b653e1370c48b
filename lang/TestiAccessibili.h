#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <QString>

#include <functional>

class QWidget;

// What a screen reader says: the names and descriptions of the section
// "Accessibilita" of the current language file. A form's own key is its
// name ("FormMenu"); a control's key is the form's name, a dot and the
// control's ("FormMenu.Command1(0)"); a description adds ".Descrizione".
QString TestoAccessibile(const QString &chiave);

// Names a screen and those of its controls that the section names, and gives
// them their descriptions. A screen the section does not name takes its
// caption. TraduciForm runs it, so the names change with the language.
void NominaForm(QWidget *form);

// A control that a screen reader meets with a role of its own and a name and
// a description read from the section at the moment they are asked for.
class InterfacciaConTesti : public QAccessibleWidget
{
public:
    InterfacciaConTesti(QWidget *w, QAccessible::Role ruolo, QString chiaveNome);
    QString text(QAccessible::Text t) const override;

private:
    QString chiave;
};

// Tells a screen reader about something that appears by itself, such as a
// question: the control's name is announced as an alert.
void Annuncia(QWidget *w);

// Every event the game itself sends to a screen reader passes here, on to
// Qt's bridge, and to the observer when one is set. Qt hands events on only
// while a reader listens; the offscreen platform has no bridge at all, so a
// test sees them through the observer.
void SegnalaAccessibile(QAccessibleEvent *e);
// Whether anyone listens: a screen reader, or the observer.
bool AccessibilitaAttiva();
void ImpostaOsservatoreAccessibile(std::function<void(QAccessibleEvent *)> osservatore);
