#include "menu/FormMenu.h"

#include "lang/TestiAccessibili.h"
#include "lang/modLanguageSupport.h"
#include "menu/ControlliMenu.h"
#include "menu/MisuraTesto.h"
#include "menu/ModuloNavigate.h"
#include "menu/SceltaMemory.h"
#include "platform/Controlli.h"
#include "platform/Errori.h"
#include "platform/IstanzaUnica.h"
#include "platform/MsgBox.h"
#include "platform/Percorsi.h"
#include "platform/Puntatore.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"
#include "profiles/CartelleDati.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QAction>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace {
QString maiuscolo(const QString &s, bool si) { return si ? s.toUpper() : s; }
} // namespace

void FormMenu::Form_Load()
{
    ComboUtenteAttiva = true;
    MLSFillMenuLanguages();
    TraduciForm(this);
    Timer1->stop();
    for (QPushButton *c : Command1)
        ScriviColoreSfondo(c, ColorePulsante);
    ScriviColoreSfondo(PictureGioca, ColorePulsante);
    ScriviColoreSfondo(PictureEsci, ColorePulsante);
    CreaResizeCondiviso(this);
}

void FormMenu::Form_Activate()
{
    CopriSchermo();
    Timer1->start();
}

void FormMenu::Form_Unload()
{
    Timer1->stop();
    SbloccaMouse();
}

QString FormMenu::TestoList2() const
{
    const QList<QListWidgetItem *> scelte = List2->selectedItems();
    return scelte.isEmpty() ? QString() : scelte.first()->text();
}

void FormMenu::dipingiGruppo(std::map<int, OpzioneGrafica *> &gruppo, int scelto)
{
    for (auto &[indice, o] : gruppo)
        if (ColoreSfondoDi(o) != ColoreOpzione)
            ScriviColoreSfondo(o, ColoreOpzione);
    if (auto it = gruppo.find(scelto); it != gruppo.end())
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
}

void FormMenu::Option1_Click(int index)
{
    Profilo.TipoMemory = qint16(index);
    FileMemory.clear();
    dipingiGruppo(Option1, index);
    AggiornaFiles();
}

void FormMenu::Option2_Click(int index)
{
    Profilo.NumeroTessere = qint16(index);
    AggiornaFiles();
    dipingiGruppo(Option2, index);
}

void FormMenu::Option3_Click(int index)
{
    NumeroGiocatori = qint16(index + 1);
    dipingiGruppo(Option3, NumeroGiocatori - 1);
}

void FormMenu::AggiornaFiles()
{
    List2->clear();
    int acceso = -1;
    for (auto &[indice, o] : Option1)
        if (o->Valore())
            acceso = indice;
    if (acceso < 0)
        return;
    const EsitoElenco esito = ElencaMemory(acceso, Profilo.NumeroTessere, Profilo.Maiuscolo1);
    CartellaMemory = esito.cartellaMemory;
    List2->addItems(esito.nomi);
}

void FormMenu::List2_Click()
{
    FileMemory = CartellaMemory + TestoList2();
    bool oltreFine = false;
    const std::optional<int> conteggio = ContaTessereFile(FileMemory, &oltreFine);
    if (!conteggio || oltreFine)
        ErroreFatale(TestoErrore(QStringLiteral("0104"), QStringLiteral("Non riesco a leggere il file del memory:"))
                     + u'\n' + MappaPercorso(FileMemory));
    const EsitoScala scala = ScalaTessere(*conteggio, Profilo.NumeroTessere);
    for (size_t i = 1; i < ValoriTessere.size(); ++i)
        Option2[ValoriTessere[i]]->setEnabled(scala.abilitato[i]);
    Profilo.NumeroTessere = scala.numeroTessere;
    if (auto it = Option2.find(Profilo.NumeroTessere); it != Option2.end())
        it->second->ImpostaValore(true);
    Command1[0]->setEnabled(true);
}

void FormMenu::Combo1_Click()
{
    if (!ComboUtenteAttiva)
        return;
    SalvaProfilo();
    NomeUtente = Combo1->currentText();
    NomiGiocatori[0] = NomeUtente;
    FileUtente = FileDelProfilo(NomeUtente);
    LeggiProfilo();
    if (Profilo.Maiuscolo1)
        maiuscoleCaption();
    for (auto *gruppo : {&Option1, &Option2})
        for (auto &[indice, o] : *gruppo)
            ScriviColoreSfondo(o, ColoreOpzione);
    if (auto it = Option1.find(Profilo.TipoMemory); it != Option1.end()) {
        it->second->ImpostaValore(true);
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
    }
    AggiornaFiles();
    if (auto it = Option2.find(Profilo.NumeroTessere); it != Option2.end()) {
        it->second->ImpostaValore(true);
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
    }
    Timer1->start();
}

void FormMenu::maiuscoleCaption()
{
    QList<QObject *> controlli = {LabelGioca, LabelEsci, Frame1, Frame2, Frame3};
    for (auto &[indice, o] : Option1)
        controlli << o;
    for (QObject *o : controlli) {
        QString caption;
        if (LeggiCaption(o, &caption))
            ScriviCaption(o, caption.toUpper());
    }
}

void FormMenu::Command1_Click(int index)
{
    if (index == 1) {
        PresentaFinestraUscita();
        return;
    }
    Schermi::MostraModale(QStringLiteral("FormNomi"));
    if (TestoList2().isEmpty()) {
        if (List2->count() == 0)
            ErroreFatale(TestoErrore(QStringLiteral("0105"),
                                     QStringLiteral("Non c'è nessun memory da giocare con le scelte fatte.")));
        {
            const QSignalBlocker blocco(List2);
            List2->setCurrentRow(0);
        }
        List2_Click();
        FileMemory = CartellaMemory + TestoList2();
    }
    if (!FileEsiste(FileMemory))
        return;
    const QString schermo = SchermoPerGioco(Profilo.TipoMemory, TestoList2());
    // The menu is on its way out. Its dressing, started when the names box
    // closed, must not come between the board's start, which turns the player
    // list back on, and the unload: it would choose the profile again and put
    // its name over the first name just typed.
    Timer1->stop();
    if (!schermo.isEmpty())
        Schermi::Mostra(schermo);
    Schermi::Scarica(this);
}

void FormMenu::mostraSchermoEScarica(const QString &nome)
{
    Schermi::Mostra(nome);
    Schermi::Scarica(this);
}

void FormMenu::PresentaFinestraUscita()
{
    const GeometriaTwips superficie = LeggiGeometria(area);
    GeometriaTwips g = LeggiGeometria(FrameUscita);
    g.Top = double(int(superficie.Height - g.Height) / 2);
    g.Left = double(int(superficie.Width - g.Width) / 2);
    ScriviGeometria(FrameUscita, g);
    FrameUscita->raise();
    ScriviColoreSfondo(FrameUscita, ColoreSfondoMenu);

    ScriviColoreSfondo(CommandSi, ColorePulsante);
    ScriviColoreSfondo(CommandNo, ColorePulsante);

    LabelSi->setText(maiuscolo(TestoLingua(QStringLiteral("0005")), Profilo.Maiuscolo1));
    LabelNo->setText(maiuscolo(TestoLingua(QStringLiteral("0004")), Profilo.Maiuscolo1));
    LabelSi->setAccessibleName(LabelSi->text());
    LabelNo->setAccessibleName(LabelNo->text());
    CommandSi->setAccessibleName(LabelSi->text());
    CommandNo->setAccessibleName(LabelNo->text());

    if (Profilo.DisabilitaMousePersonalizzato) {
        CommandSi->setCursor(Qt::ArrowCursor);
        CommandNo->setCursor(Qt::ArrowCursor);
    }

    BloccaMouse();
    PortaMousePosizione();

    const QString misura = LabelSi->text().size() > LabelNo->text().size() ? LabelSi->text() : LabelNo->text();
    LabelDimensionaFont->setText(misura);
    const int larghezzaSi = int(LeggiGeometria(LabelSi).Width);
    const int punti = CresciFont(LabelDimensionaFont->font(), misura, 12,
                                 [larghezzaSi](int larghezza, int) { return larghezza < larghezzaSi; });
    ImpostaPunti(LabelDimensionaFont, punti);
    ImpostaPunti(LabelSi, punti);
    ImpostaPunti(LabelNo, punti);

    FrameUscita->show();

    ImageNo->setCursor(CommandSi->cursor());
    PictureNo->setCursor(CommandSi->cursor());
    ScriviColoreSfondo(PictureSi, ColoreSfondoDi(CommandSi));
    ScriviColoreSfondo(PictureNo, ColoreSfondoDi(CommandNo));
    CommandSi->setFocus();
    Annuncia(FrameUscita);
}

void FormMenu::BloccaMouse()
{
    ConfinaPuntatore(QRect(FrameUscita->mapToGlobal(QPoint(0, 0)), FrameUscita->size()));
}

void FormMenu::SbloccaMouse() { LiberaPuntatore(); }

void FormMenu::PortaMousePosizione()
{
    // Top for x and the minus signs are the game's own: with the panel's
    // confinement in force the pointer stops at the panel's edge.
    const GeometriaTwips g = LeggiGeometria(Frame2);
    QPoint punto(int(g.Top - g.Height / 2), int(g.Left - g.Width / 2));
    // The old clip held a jump of the pointer inside too; pointer barriers don't stop a jump.
    if (PuntatoreConfinato()) {
        const QRect r = RettangoloConfinamento();
        punto = {std::clamp(punto.x(), r.left(), r.right()), std::clamp(punto.y(), r.top(), r.bottom())};
    }
    SpostaPuntatore(punto);
}

void FormMenu::CommandSi_Click()
{
    SbloccaMouse();
    SalvaProfilo();
    ResizeCondiviso.reset();
    RilasciaIstanzaUnica();
    TerminaProcesso(0);
}

void FormMenu::CommandNo_Click()
{
    SbloccaMouse();
    FrameUscita->hide();
}

void FormMenu::Option_MouseMove(std::map<int, OpzioneGrafica *> &gruppo, int index)
{
    for (auto &[indice, o] : gruppo) {
        const int colore = indice == index ? ColoreOpzioneSotto : o->Valore() ? ColoreOpzioneScelta : ColoreOpzione;
        ScriviColoreSfondo(o, colore);
    }
}

void FormMenu::Frame_MouseMove(std::map<int, OpzioneGrafica *> &gruppo)
{
    for (auto &[indice, o] : gruppo)
        ScriviColoreSfondo(o, o->Valore() ? ColoreOpzioneScelta : ColoreOpzione);
}

void FormMenu::Command1_MouseMove(int index)
{
    if (ColoreSfondoDi(Command1[index]) == ColorePulsanteSotto)
        return;
    for (QPushButton *c : Command1)
        ScriviColoreSfondo(c, ColorePulsante);
    ScriviColoreSfondo(Command1[index], ColorePulsanteSotto);
    ScriviColoreSfondo(PictureGioca, ColoreSfondoDi(Command1[0]));
    ScriviColoreSfondo(PictureEsci, ColoreSfondoDi(Command1[1]));
}

void FormMenu::Form_MouseMove()
{
    Frame_MouseMove(Option1);
    Frame_MouseMove(Option2);
    Frame_MouseMove(Option3);
    for (QPushButton *c : Command1)
        if (ColoreSfondoDi(c) != ColorePulsante)
            ScriviColoreSfondo(c, ColorePulsante);
    ScriviColoreSfondo(PictureGioca, ColoreSfondoDi(Command1[0]));
    ScriviColoreSfondo(PictureEsci, ColoreSfondoDi(Command1[1]));
}

void FormMenu::CommandSiNo_MouseMove(bool si)
{
    QPushButton *questo = si ? CommandSi : CommandNo;
    QPushButton *altro = si ? CommandNo : CommandSi;
    if (ColoreSfondoDi(questo) == ColorePulsanteSotto)
        return;
    ScriviColoreSfondo(altro, ColorePulsante);
    ScriviColoreSfondo(questo, ColorePulsanteSotto);
    ScriviColoreSfondo(PictureSi, ColoreSfondoDi(CommandSi));
    ScriviColoreSfondo(PictureNo, ColoreSfondoDi(CommandNo));
}

void FormMenu::FrameUscita_MouseMove()
{
    for (QWidget *w : std::initializer_list<QWidget *>{CommandSi, CommandNo, PictureSi, PictureNo})
        ScriviColoreSfondo(w, ColorePulsante);
}

void FormMenu::MLSFillMenuLanguages()
{
    const QStringList voci = ElencoLingue();
    if (voci.isEmpty()) {
        MsgBox(QStringLiteral("Non è presente alcun file di linguaggio!"));
        return;
    }
    for (int i = 0; i < voci.size(); ++i) {
        if (i > 0) {
            QAction *a = mnuLanguages->addAction(QString());
            a->setObjectName(QStringLiteral("mnuLanguage"));
            ImpostaIndice(a, i);
            a->setCheckable(true);
            a->setVisible(true);
            a->setProperty("TestoDalProgramma", true);
            connect(a, &QAction::triggered, this, [this, i] { mnuLanguage_Click(i); });
            mnuLanguage << a;
        }
        mnuLanguage[i]->setText(voci[i]);
    }
    LinguaCorrente = LinguaImpostata();
    const int spuntata = IndiceLinguaSpuntata(voci, LinguaCorrente);
    if (spuntata >= 0)
        mnuLanguage[spuntata]->setChecked(true);
}

void FormMenu::mnuLanguage_Click(int index)
{
    for (QAction *a : mnuLanguage)
        a->setChecked(false);
    mnuLanguage[index]->setChecked(true);
    ScegliLingua(mnuLanguage[index]->text());
    Timer1->start();
}

void FormMenu::mnuDocumentazione_Click() { ApriDocumento(this, CartellaProgramma() + QStringLiteral("\\tesselo.pdf")); }

void FormMenu::mnuAbout_Click() { mostraSchermoEScarica(QStringLiteral("FormInfo")); }
