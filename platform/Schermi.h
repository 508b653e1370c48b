#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>

#include <functional>

// A screen of the game. Every screen is created with its design size in
// twips and its controls at their design rectangles; the screen manager then
// runs Form_Load once, and Form_Activate each time the screen is shown and
// becomes the current one, or a modal screen that it opened closes.
class Form : public QDialog
{
    Q_OBJECT
public:
    Form(const QString &nome, int larghezzaTwips, int altezzaTwips, QWidget *parent = nullptr);

    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Resize();
    virtual void Form_Unload() {}

    // Left 0, Top 0, the screen's width and height: what every full screen does on activation.
    void CopriSchermo();

    // Whether the screen covers the whole display; only the names box does not.
    bool schermoIntero = true;

protected:
    void resizeEvent(QResizeEvent *e) override;
    void closeEvent(QCloseEvent *e) override;
    void reject() override;
};

using FabbricaForm = std::function<Form *()>;

// The star of screens: one reference per screen, created at first use and
// cleared by the unload, so that a screen shown again loads afresh.
namespace Schermi {
void Registra(const QString &nome, FabbricaForm fabbrica);
Form *Riferimento(const QString &nome); // nullptr when not loaded
Form *Carica(const QString &nome);      // creates and loads when needed
void Mostra(const QString &nome);       // not modally; the screen becomes the current one
int MostraModale(const QString &nome);  // nested loop; the opener is activated again afterwards
void Scarica(Form *form);               // unloads; the reference becomes empty
Form *Corrente();
QList<Form *> Aperti();
QStringList Nomi(); // every registered screen
void ScaricaTuttiPerProve();
} // namespace Schermi
