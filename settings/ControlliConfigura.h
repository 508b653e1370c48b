#pragma once

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

// Option buttons and check boxes whose caption wraps inside the control's
// rectangle, as the old ones did: a long caption on a narrow, tall control
// takes two lines instead of being cut. The whole rectangle answers the
// pointer. Buttons wrap their caption the same way. Their background is the palette's Window when filled.
class OpzioneACapo final : public QRadioButton
{
public:
    explicit OpzioneACapo(const QString &caption, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *) override;
    bool hitButton(const QPoint &pos) const override;
};

class CasellaACapo final : public QCheckBox
{
public:
    explicit CasellaACapo(const QString &caption, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *) override;
    bool hitButton(const QPoint &pos) const override;
};

class PulsanteACapo final : public QPushButton
{
public:
    explicit PulsanteACapo(const QString &caption, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *) override;
};
