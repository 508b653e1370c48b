#pragma once

// What the menu's tests share: a data tree, sets of a given size, profiles,
// stand-in boards, and a names box that answers by itself.

#include "AmbienteProva.h"
#include "AttendiLavoro.h"

#include "lang/modLanguageSupport.h"
#include "menu/ControlliMenu.h"
#include "menu/FormMenu.h"
#include "menu/FormNomi.h"
#include "menu/RegistraMenu.h"
#include "platform/Controlli.h"
#include "platform/Puntatore.h"
#include "platform/Schermi.h"
#include "platform/TestoFile.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"
#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <memory>

inline const QStringList NomiTavole = {QStringLiteral("FormmemGG"), QStringLiteral("FormmemPG"),
                                       QStringLiteral("FormmemPS"), QStringLiteral("FormmemSS"),
                                       QStringLiteral("FormmemGGCS")};

// A board as far as the menu can tell: it comes up full screen, puts the
// player list back in force as the real boards do, and goes back to the menu
// when told to.
class TavolaProva final : public Form
{
public:
    explicit TavolaProva(const QString &nome) : Form(nome, 8805, 5655) {}
    void Form_Activate() override
    {
        ComboUtenteAttiva = true;
        CopriSchermo();
        ++attivazioni;
        fileAllaPartenza = FileMemory;
        giocatoriAllaPartenza = NumeroGiocatori;
        // A real board's start lets events run while it loads its faces.
        if (attesaAvvioMs > 0)
            QTest::qWait(attesaAvvioMs);
        nomiAllaPartenza = {NomiGiocatori[0], NomiGiocatori[1], NomiGiocatori[2]};
    }
    inline static int attesaAvvioMs = 0;
    // Yes on the board's exit question.
    void Esci()
    {
        Schermi::Mostra(QStringLiteral("FormMenu"));
        Schermi::Scarica(this);
    }
    int attivazioni = 0;
    QString fileAllaPartenza;
    QStringList nomiAllaPartenza;
    int giocatoriAllaPartenza = 0;
};

class AmbienteMenu
{
public:
    explicit AmbienteMenu(bool conFileLingua = true) : ambiente(std::make_unique<AmbienteProva>(conFileLingua))
    {
        ImpostaSchermoPerProve(QRect(0, 0, 1024, 768));
        LinguaCorrente.clear();
        for (const char *c : {"tesselo/utenti", "tesselo/dati/ii", "tesselo/dati/pi", "tesselo/dati/suoni",
                              "tesselo/dati/gif", "tesselo/dati/swf"})
            QDir().mkpath(ambiente->Radice() + u'/' + QLatin1String(c));
        ValoriPredefiniti();
        Profilo.ProntiImportati = true;
        NomeUtente = ProfiloPredefinito;
        FileUtente = CartellaUtenti + QStringLiteral("_predefinito.INI");
        NumeroGiocatori = 1;
        for (QString &n : NomiGiocatori)
            n.clear();
        FileMemory.clear();
        ComboUtenteAttiva = false;
        RegistraSchermiMenu();
        for (const QString &n : NomiTavole)
            Schermi::Registra(n, [n] { return new TavolaProva(n); });
        LiberaPuntatore();
    }

    ~AmbienteMenu()
    {
        Schermi::ScaricaTuttiPerProve();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        LiberaPuntatore();
        ImpostaSchermoPerProve(QRect());
        LinguaCorrente.clear();
    }

    QString Dati(const QString &relativo) const { return ambiente->Radice() + QStringLiteral("/tesselo/dati/") + relativo; }
    QString Utenti(const QString &relativo) const { return ambiente->Radice() + QStringLiteral("/tesselo/utenti/") + relativo; }

    // A set of `coppie` records of four lines each.
    void Set(const QString &relativo, int coppie) const
    {
        QByteArray b;
        for (int i = 0; i < coppie; ++i)
            b += "C:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\gif\\a" + QByteArray::number(i)
                 + ".gif\r\nC:\\ImpostazioniProgrammiLorea\\tesselo\\dati\\gif\\b" + QByteArray::number(i)
                 + ".gif\r\n\r\n\r\n";
        AmbienteProva::Scrivi(Dati(relativo), b);
    }

    void ProfiloSuDisco(const QString &nome, const ProfiloGiocatore &p) const
    {
        AmbienteProva::Scrivi(Utenti(nome + QStringLiteral(".ini")), CodificaTestoProfilo(p));
    }
    static QByteArray CodificaTestoProfilo(const ProfiloGiocatore &p)
    {
        return CodificaTesto(TestoProfilo(p));
    }

    // Shows the menu and waits for its dressing tick.
    FormMenu *MostraMenu() const
    {
        Schermi::Mostra(QStringLiteral("FormMenu"));
        auto *m = qobject_cast<FormMenu *>(Schermi::Riferimento(QStringLiteral("FormMenu")));
        if (m && !AttendiVestizione(m))
            return nullptr;
        return m;
    }
    static bool AttendiVestizione(FormMenu *m)
    {
        AttendiFinche([m] { return !m->Timer1->isActive(); });
        return true;
    }

    // The names box, when it comes up, takes these names and is confirmed.
    // Fields that are not enabled are left alone.
    void RispondiNomi(const QStringList &nomi, bool conferma = true)
    {
        auto *poll = new QTimer;
        poll->setInterval(5);
        QObject::connect(poll, &QTimer::timeout, poll, [this, poll, nomi, conferma] {
            auto *f = qobject_cast<FormNomi *>(Schermi::Riferimento(QStringLiteral("FormNomi")));
            // Activation confines the pointer: after it, the fields hold what the box offers.
            if (!f || !f->isVisible() || !PuntatoreConfinato())
                return;
            poll->stop();
            poll->deleteLater();
            offerti.clear();
            for (QLineEdit *t : f->Text1)
                offerti << t->text();
            confinatoAllaNomi = RettangoloConfinamento();
            for (int i = 0; i < 3 && i < nomi.size(); ++i) {
                if (!f->Text1[i]->isEnabled())
                    continue;
                f->Text1[i]->selectAll();
                if (nomi[i].isEmpty())
                    QTest::keyClick(f->Text1[i], Qt::Key_Delete);
                else
                    QTest::keyClicks(f->Text1[i], nomi[i]);
            }
            pulsanteAbilitato = f->Command1->isEnabled();
            if (conferma)
                QTest::mouseClick(f->Command1, Qt::LeftButton);
            else
                Schermi::Scarica(f);
        });
        poll->start();
    }

    std::unique_ptr<AmbienteProva> ambiente;
    QStringList offerti;
    bool pulsanteAbilitato = false;
    QRect confinatoAllaNomi;
};
