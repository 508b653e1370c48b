#include "settings/FormConfigura.h"

#include "lang/modLanguageSupport.h"
#include "platform/Caratteri.h"
#include "platform/Colori.h"
#include "platform/CommDlgs.h"
#include "platform/Controlli.h"
#include "platform/ControlliACapo.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"
#include "profiles/Profilo.h"
#include "settings/RegoleConfigura.h"

#include <QFontMetricsF>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTabWidget>

#include <algorithm>
#include <cmath>

namespace {
// The two word settings are near-copies; what differs between them stands here.
struct Parola {
    QString ProfiloGiocatore::*font;
    double ProfiloGiocatore::*coloreFont;
    double ProfiloGiocatore::*coloreSfondo;
    bool ProfiloGiocatore::*maiuscolo;
    // The first word's font colour button leaves the form as it is: its
    // chooser has coloured the sample already.
    bool coloreFontRiallinea;
};
constexpr Parola Parole[2] = {
    {&ProfiloGiocatore::FontParola1, &ProfiloGiocatore::ColoreFont1, &ProfiloGiocatore::ColoreSfondoTesto1,
     &ProfiloGiocatore::Maiuscolo1, false},
    {&ProfiloGiocatore::FontParola2, &ProfiloGiocatore::ColoreFont2, &ProfiloGiocatore::ColoreSfondoTesto2,
     &ProfiloGiocatore::Maiuscolo2, true},
};

// What the word samples are measured on; it is no caption and is not translated.
const QString TestoMisura = QStringLiteral("  Seconda parola  ");

// A shape takes a line from 1 pixel up; anything else is refused and the
// line stays as it was.
constexpr int SpessoreLineaMassimo = 8192;

void coloraSfondo(QWidget *w, double colore)
{
    QPalette p = w->palette();
    p.setColor(QPalette::Window, ColoreDaNumero(colore));
    w->setPalette(p);
    // Option buttons and check boxes fill with the Button role unless told otherwise.
    w->setBackgroundRole(QPalette::Window);
    w->setAutoFillBackground(true);
}

QString cartellaUtenti() { return CartellaUtenti; }
} // namespace

void FormConfigura::Form_Load()
{
    TraduciForm(this);
    CreaResizeCondiviso(this, 75);
    TabStrip1->setAccessibleName(windowTitle());
    // What a screen reader says of the controls that show no caption.
    for (QWidget *w : ControlliDelForm(this))
        if (w->accessibleName().isEmpty() && !w->toolTip().isEmpty())
            w->setAccessibleName(w->toolTip());
}

void FormConfigura::Form_Activate()
{
    CopriSchermo();
    const qint16 modo = Profilo.ModoInput;
    if (modo >= 0 && modo < qint16(Option4.size())) {
        Option4[size_t(modo)]->setChecked(true);
        Option4_Click(modo);
    }
    Label4->setText(NomeUtente);
    NascondiFrame();
    ImpostaConfigurazioni();
    FrameUtente->show();
    FrameUtente->raise();
}

void FormConfigura::NascondiFrame()
{
    FrameUtente->hide();
    FrameParole->hide();
    FramePunt->hide();
}

void FormConfigura::TabStrip1_Click()
{
    NascondiFrame();
    QFrame *frame[3] = {FrameUtente, FrameParole, FramePunt};
    const int scheda = TabStrip1->currentIndex();
    if (scheda < 0 || scheda > 2)
        return;
    frame[scheda]->show();
    frame[scheda]->raise();
}

void FormConfigura::ImpostaConfigurazioni()
{
    ++EsecuzioniImpostaConfigurazioni;
    ++annidamento;
    AnnidamentoMassimo = std::max(AnnidamentoMassimo, annidamento);

    // 1. The samples' backgrounds.
    coloraSfondo(PicturePosto, Profilo.ColoreTessere);
    coloraSfondo(PictureSfondoParola[0], Profilo.ColoreSfondoTesto1);
    coloraSfondo(PictureSfondoParola[1], Profilo.ColoreSfondoTesto2);

    // 2. The dialog's own background.
    QList<QWidget *> sfondo = {FrameParole, FrameUtente, FramePunt, CheckRiparti, Frame1[0], Frame1[1]};
    for (auto *o : optMaiuscolo1)
        sfondo << o;
    for (auto *o : optMaiuscolo2)
        sfondo << o;
    for (auto *o : OptionUtente)
        sfondo << o;
    for (auto *o : Option4)
        sfondo << o;
    sfondo << CheckRiquadro << Label1 << Label2 << CheckSuoni << CheckDisabilitaMousePersonalizzato;
    for (QWidget *w : sfondo) {
        coloraSfondo(w, Profilo.ColoreSfondo);
        // A word frame lays the style's faint panel over that same colour; the
        // controls in it let the panel show, or each would stand out as a lighter box.
        if (qobject_cast<QGroupBox *>(w->parentWidget()))
            w->setAutoFillBackground(false);
    }

    // 3. The words' fonts and colours: the name only, the rest of the sample's font stays.
    QLabel *campioni[2] = {LabelFontSelezionato1, LabelFontSelezionato2};
    for (int i = 0; i < 2; ++i) {
        QFont f = campioni[i]->font();
        ImpostaFamiglia(f, Profilo.*Parole[i].font);
        campioni[i]->setFont(f);
        ImpostaForeColor(campioni[i], Profilo.*Parole[i].coloreFont);
    }

    // 4. The frame's thickness first: a bar that moves runs this routine once more from inside.
    if (Profilo.SpessoreRiquadro >= HScrollRiquadro->minimum() && Profilo.SpessoreRiquadro <= HScrollRiquadro->maximum())
        HScrollRiquadro->setValue(Profilo.SpessoreRiquadro);
    CheckRiparti->setChecked(Profilo.Riparti);
    CheckRiquadro->setChecked(Profilo.Riquadro);

    // 5. The frame's sample, as scanning will draw it.
    if (Profilo.SpessoreRiquadro >= 1 && Profilo.SpessoreRiquadro <= SpessoreLineaMassimo)
        ShapeRiquadro->spessore = Profilo.SpessoreRiquadro;
    ShapeRiquadro->colore = ColoreDaNumero(Profilo.ColoreScansione);
    ShapeRiquadro->update();

    // 6. Capitals or not: only here, so a click on these options shows at the next run.
    std::array<OpzioneACapo *, 2> *opzioni[2] = {&optMaiuscolo1, &optMaiuscolo2};
    for (int i = 0; i < 2; ++i) {
        const bool maiuscolo = Profilo.*Parole[i].maiuscolo;
        campioni[i]->setText(maiuscolo ? campioni[i]->text().toUpper() : campioni[i]->text().toLower());
        (*opzioni[i])[maiuscolo ? 0 : 1]->setChecked(true);
    }

    // 7. The samples' size.
    LabelDimensionaFont->setText(TestoMisura);
    campioneParola(0);
    campioneParola(1);

    // 8.
    CheckSuoni->setChecked(Profilo.Suoni);
    CheckDisabilitaMousePersonalizzato->setChecked(Profilo.DisabilitaMousePersonalizzato);

    // 9. What the input mode shows.
    const ControlliModo c = ControlliPerModo(Profilo.ModoInput, Profilo.Riquadro);
    CheckRiparti->setVisible(c.CheckRiparti);
    CheckRiquadro->setVisible(c.CheckRiquadro);
    ShapeRiquadro->linea = c.lineaShapeRiquadro;
    ShapeRiquadro->update();
    HScrollRiquadro->setVisible(c.HScrollRiquadro);
    if (c.HScroll3 && Profilo.VelocitaScansione >= HScroll3->minimum()
        && Profilo.VelocitaScansione <= HScroll3->maximum())
        HScroll3->setValue(Profilo.VelocitaScansione);
    HScroll3->setVisible(c.HScroll3);
    if (c.Label7)
        Label7->setText(TestoVelocita(Profilo.VelocitaScansione));
    Label7->setVisible(c.Label7);
    CheckDisabilitaMousePersonalizzato->setVisible(c.CheckDisabilitaMousePersonalizzato);

    --annidamento;
}

void FormConfigura::campioneParola(int parola)
{
    // The measure keeps its size from the last time: it only grows, and
    // both words are measured against the first word's picture.
    QFont misura = LabelDimensionaFont->font();
    ImpostaFamiglia(misura, Profilo.*Parole[parola].font);
    const double punti = CresciCampione(misura, LabelDimensionaFont->text(), misura.pointSizeF(),
                                        LeggiGeometria(PictureSfondoParola[0]).Width);
    misura.setPointSizeF(punti);
    LabelDimensionaFont->setFont(misura);

    QLabel *campione = parola == 0 ? LabelFontSelezionato1 : LabelFontSelezionato2;
    QFont f = campione->font();
    f.setPointSizeF(punti);
    campione->setFont(f);
    // A self-sizing label, centred in its picture by whole twips.
    const QFontMetricsF m(f);
    const double larghezza = TwipsDaPixel(int(std::ceil(m.horizontalAdvance(campione->text()))));
    const double altezza = TwipsDaPixel(int(std::ceil(m.height())));
    const GeometriaTwips figura = LeggiGeometria(PictureSfondoParola[size_t(parola)]);
    ScriviGeometria(campione, {std::trunc((figura.Width - larghezza) / 2), std::trunc((figura.Height - altezza) / 2),
                               larghezza, altezza});
}

// --- the player

void FormConfigura::OptionUtente_Click(int index)
{
    SalvaProfilo();
    if (index == 0) {
        NomeUtente = ProfiloPredefinito;
        Label4->setText(NomeUtente);
        FileUtente = cartellaUtenti() + NomeUtente + QStringLiteral(".ini");
        TextNuovoUtente->hide();
        ListModificaUtente->hide();
    } else if (index == 1) {
        ListModificaUtente->show();
        {
            const QSignalBlocker blocco(ListModificaUtente);
            ListModificaUtente->clear();
        }
        ListModificaUtente->addItems(ElencoGiocatori(cartellaUtenti()));
        TextNuovoUtente->hide();
    } else if (index == 2) {
        // Emptying the box is a change, also when it was empty: the new player starts with no name.
        {
            const QSignalBlocker blocco(TextNuovoUtente);
            TextNuovoUtente->clear();
        }
        TextNuovoUtente_Change();
        TextNuovoUtente->show();
        TextNuovoUtente->setFocus();
        ListModificaUtente->hide();
    }
}

void FormConfigura::ListModificaUtente_Click()
{
    const QList<QListWidgetItem *> scelti = ListModificaUtente->selectedItems();
    if (scelti.isEmpty())
        return;
    const QString nome = scelti.first()->text();
    SalvaProfilo();
    FileUtente = cartellaUtenti() + nome + QStringLiteral(".ini");
    NomeUtente = nome;
    Label4->setText(NomeUtente);
    LeggiProfilo();
    ImpostaConfigurazioni();
}

void FormConfigura::TextNuovoUtente_Change()
{
    // No check at all: the name becomes a file at the next save, whatever it holds.
    FileUtente = cartellaUtenti() + TextNuovoUtente->text() + QStringLiteral(".ini");
    NomeUtente = TextNuovoUtente->text();
    Label4->setText(NomeUtente);
}

void FormConfigura::mnuEsci_Click()
{
    SalvaProfilo();
    Schermi::Mostra(QStringLiteral("FormMenu"));
    Schermi::Scarica(this);
}

// --- colours, fonts, sounds

void FormConfigura::sceltaSfondoTesto(int parola)
{
    QFrame *figura = PictureSfondoParola[size_t(parola)];
    if (ScegliColore(this, figura))
        Profilo.*Parole[parola].coloreSfondo = ForeColorDi(figura);
    ImpostaConfigurazioni();
}

void FormConfigura::sceltaFont(int parola)
{
    QLabel *campione = parola == 0 ? LabelFontSelezionato1 : LabelFontSelezionato2;
    ScegliFont(this, campione);
    // Confirmed or not, only the name is kept.
    Profilo.*Parole[parola].font = campione->font().family();
    ImpostaConfigurazioni();
}

void FormConfigura::sceltaColoreFont(int parola)
{
    QLabel *campione = parola == 0 ? LabelFontSelezionato1 : LabelFontSelezionato2;
    if (ScegliColore(this, campione))
        Profilo.*Parole[parola].coloreFont = ForeColorDi(campione);
    if (Parole[parola].coloreFontRiallinea)
        ImpostaConfigurazioni();
}

void FormConfigura::CommandSceltaSfondoTesto1_Click() { sceltaSfondoTesto(0); }
void FormConfigura::CommandSceltaSfondoTesto2_Click() { sceltaSfondoTesto(1); }
void FormConfigura::CommandSceltaFont1_Click() { sceltaFont(0); }
void FormConfigura::CommandSceltaFont2_Click() { sceltaFont(1); }
void FormConfigura::CommandSceltaColoreFont1_Click() { sceltaColoreFont(0); }
void FormConfigura::CommandSceltaColoreFont2_Click() { sceltaColoreFont(1); }
void FormConfigura::optMaiuscolo1_Click(int index) { Profilo.Maiuscolo1 = index == 0; }
void FormConfigura::optMaiuscolo2_Click(int index) { Profilo.Maiuscolo2 = index == 0; }

void FormConfigura::CommandSceltaColoreTessere_Click()
{
    if (ScegliColore(this, PicturePosto))
        Profilo.ColoreTessere = ForeColorDi(PicturePosto);
    ImpostaConfigurazioni();
}

void FormConfigura::Command1_Click()
{
    if (ScegliColore(this, FrameParole))
        Profilo.ColoreSfondo = ForeColorDi(FrameParole);
    ImpostaConfigurazioni();
}

void FormConfigura::CheckSuoni_Click() { Profilo.Suoni = CheckSuoni->isChecked(); }

// --- input mode

void FormConfigura::Option4_Click(int index)
{
    Profilo.ModoInput = qint16(index);
    ImpostaConfigurazioni();
}

void FormConfigura::CheckDisabilitaMousePersonalizzato_Click()
{
    Profilo.DisabilitaMousePersonalizzato = CheckDisabilitaMousePersonalizzato->isChecked();
}

void FormConfigura::CheckRiparti_Click() { Profilo.Riparti = CheckRiparti->isChecked(); }

void FormConfigura::CheckRiquadro_Click()
{
    Profilo.Riquadro = CheckRiquadro->isChecked();
    ImpostaConfigurazioni();
}

void FormConfigura::HScroll3_Change()
{
    Profilo.VelocitaScansione = qint16(HScroll3->value());
    Label7->setText(TestoVelocita(Profilo.VelocitaScansione));
}

void FormConfigura::HScrollRiquadro_Change()
{
    Profilo.SpessoreRiquadro = qint16(HScrollRiquadro->value());
    ImpostaConfigurazioni();
}

void FormConfigura::CommandScansione_Click()
{
    if (ScegliColore(this, LabelPerColore))
        Profilo.ColoreScansione = ForeColorDi(LabelPerColore);
    ImpostaConfigurazioni();
}

void FormConfigura::CommandAccesso_Click()
{
    Schermi::MostraModale(QStringLiteral("FormAccesso"));
    // Coming back activates this form, which shows the players' tab; the
    // person came from the input tab and finds it again.
    TabStrip1->setCurrentIndex(2);
    TabStrip1_Click();
}
