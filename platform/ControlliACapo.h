#pragma once

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

// Buttons, check boxes and option buttons whose caption wraps onto as many
// lines as it needs inside the control's rectangle, as the old controls'
// captions did. Check boxes and option buttons answer a click anywhere on
// themselves; filled, their background is the palette's background role.

class PulsanteACapo final : public QPushButton
{
    Q_OBJECT
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent *e) override;
};

class CasellaACapo final : public QCheckBox
{
    Q_OBJECT
public:
    using QCheckBox::QCheckBox;

protected:
    void paintEvent(QPaintEvent *e) override;
    bool hitButton(const QPoint &pos) const override { return rect().contains(pos); }
};

class OpzioneACapo final : public QRadioButton
{
    Q_OBJECT
public:
    using QRadioButton::QRadioButton;

protected:
    void paintEvent(QPaintEvent *e) override;
    bool hitButton(const QPoint &pos) const override { return rect().contains(pos); }
};

// A list box that shows whole rows only, as the old list boxes did: as many
// rows as the box holds at its font's height, at least one, share its height,
// so no entry is ever half shown. It scrolls a row at a time; a name too long
// for it ends in an ellipsis rather than bringing a bar that would eat a row.
class ElencoRigheIntere final : public QListWidget
{
    Q_OBJECT
public:
    explicit ElencoRigheIntere(QWidget *parent = nullptr);
    int AltezzaRiga() const;

protected:
    void resizeEvent(QResizeEvent *e) override;
    void changeEvent(QEvent *e) override;

private:
    void misuraRighe();
    int riga = 1;
};
