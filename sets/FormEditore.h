#pragma once

#include "platform/ControlliACapo.h"
#include "platform/Schermi.h"
#include "sets/Editore.h"

#include <QCheckBox>
#include <QPushButton>
#include <QScrollBar>

#include <map>
#include <memory>

class Etichetta;
class Filmato;
class QAction;
class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenuBar;
class QProgressBar;
class QScrollBar;

// The pair navigator: a horizontal scroll bar that the keyboard moves too.
class BarraCoppie final : public QScrollBar
{
    Q_OBJECT
public:
    explicit BarraCoppie(QWidget *parent) : QScrollBar(Qt::Horizontal, parent) {}

protected:
    void keyPressEvent(QKeyEvent *e) override;
};

// One set editor: the widgets that show the rules of Editore and forward
// input to them. The four editors are this form with their own settings.
class FormEditore final : public Form, public VistaEditore
{
    Q_OBJECT
public:
    explicit FormEditore(const ImpostazioniEditore &impostazioni);
    ~FormEditore() override;

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;

    void Aggiorna() override;

    Editore &Modello() { return *editore; }

    QMenuBar *BarraMenu = nullptr;
    QAction *mnuEsci = nullptr;
    // Every control under its design name.
    std::map<QString, QWidget *> Controlli;
    template <typename T> T *Controllo(const QString &nome) const
    {
        auto it = Controlli.find(nome);
        return it == Controlli.end() ? nullptr : qobject_cast<T *>(it->second);
    }

    void mnuEsci_Click();

protected:
    void resizeEvent(QResizeEvent *e) override;
    bool eventFilter(QObject *o, QEvent *e) override;

private:
    void creaControlli();
    QWidget *creaControllo(const ControlloEditore &c, QWidget *padre);
    void collega(const QString &nome, QWidget *w);
    void aggiornaFilm(int k);
    void aggiornaFigura(int k);
    void aggiornaMiniature();

    std::unique_ptr<Editore> editore;
    QWidget *area = nullptr;
    int caricamentiFilm[4] = {-1, -1, -1, -1};
    int riavvolgimentiFilm[4] = {0, 0, 0, 0};
    int caricamentiFigura[3] = {-1, -1, -1};
    int vociMostrate = 0;
    bool attesaMostrata = false;
    bool aggiornando = false;
};
