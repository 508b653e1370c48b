#pragma once

#include <QObject>

#include <functional>
#include <memory>

// A joystick or gamepad whose buttons serve as switches. Buttons are numbered
// from 0; a press and a release each say so once.
class SorgenteJoystick : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
signals:
    void Pulsante(int numero, bool premuto);
};

// The first joystick or gamepad of the system, read through SDL; one plugged
// in later is taken when it comes. With none, or without SDL, it stays silent.
std::unique_ptr<SorgenteJoystick> CreaJoystick();

// For tests: what CreaJoystick makes; an empty function goes back to SDL.
void ImpostaJoystickPerProve(std::function<std::unique_ptr<SorgenteJoystick>()> crea);

// The moment of an input, in milliseconds on a steady scale.
qint64 MomentoIngresso();
// For tests: the moments they give; an empty function goes back to the clock.
void ImpostaMomentoIngressoPerProve(std::function<qint64()> momento);
