#include "board/FormPremio.h"

#include "board/ElencoPremi.h"
#include "lang/TestiAccessibili.h"
#include "lang/modLanguageSupport.h"
#include "platform/Attendi.h"
#include "platform/Colori.h"
#include "platform/CursoreGioco.h"
#include "platform/Durate.h"
#include "platform/ModuloColoriSuoni.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"
#include "platform/media/Filmato.h"
#include "profiles/Profilo.h"

#include <QPushButton>

FormPremio::FormPremio() : Form(QStringLiteral("FormPremio"), 8190, 6390)
{
    setWindowTitle(QStringLiteral("Coppie vivaci"));
    ShockwaveFlash1 = new Filmato(this);
    ShockwaveFlash1->setObjectName(QStringLiteral("ShockwaveFlash1"));
    ShockwaveFlash1->setAccessibleName(QStringLiteral("Filmato premio"));
    ShockwaveFlash1->ImpostaCliccabile(true);
    ScriviGeometria(ShockwaveFlash1, {1440, 720, 4215, 3975});

    Command1 = new QPushButton(this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setAccessibleName(QStringLiteral("Command1"));
    QFont f(QStringLiteral("Comic Sans MS"));
    f.setPointSize(20);
    f.setBold(true);
    Command1->setFont(f);
    ScriviGeometria(Command1, {1440, 5160, 4215, 855});
    connect(Command1, &QPushButton::clicked, this, [this] { Schermi::Scarica(this); });
}

void FormPremio::Form_Load()
{
    TraduciForm(this);
    if (!Command1->text().isEmpty())
        Command1->setAccessibleName(QString(Command1->text()).remove(u'&'));
    CreaResizeCondiviso(this);
    QPalette p = palette();
    p.setColor(QPalette::Window, ColoreDaNumero(ColoreCasuale()));
    setPalette(p);
    setAutoFillBackground(true);
}

void FormPremio::Form_Activate()
{
    CopriSchermo();
    Command1->setCursor(Profilo.DisabilitaMousePersonalizzato ? QCursor(Qt::ArrowCursor) : CursoreGioco());
    Command1->setEnabled(false);
    Carica();
    ::Attendi(Durate::BloccoPremio);
    Command1->setEnabled(true);
    Command1->setFocus();
    // A screen reader says that the game is won, then the button.
    Annuncia(this);
}

void FormPremio::Carica()
{
    ShockwaveFlash1->setMovie(FilmPremioEstratto(CompilaElencoPremi(ElencaFilmPremio())));
    ShockwaveFlash1->Play();
}
