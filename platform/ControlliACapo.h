#pragma once

#include <QCheckBox>
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
