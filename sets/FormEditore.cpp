#include "sets/FormEditore.h"

#include "lang/modLanguageSupport.h"
#include "platform/Caratteri.h"
#include "platform/Controlli.h"
#include "platform/Twips.h"
#include "platform/clsResize.h"
#include "platform/media/Filmato.h"
#include "sets/Sfogliatore.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPainter>
#include <QProgressBar>
#include <QKeyEvent>
#include <QResizeEvent>
#include <QScrollBar>

void BarraCoppie::keyPressEvent(QKeyEvent *e)
{
    // The arrows move it one pair, Home and End to the ends, as the old bar did when it had the focus.
    switch (e->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up: triggerAction(SliderSingleStepSub); break;
    case Qt::Key_Right:
    case Qt::Key_Down: triggerAction(SliderSingleStepAdd); break;
    case Qt::Key_PageUp: triggerAction(SliderPageStepSub); break;
    case Qt::Key_PageDown: triggerAction(SliderPageStepAdd); break;
    case Qt::Key_Home: triggerAction(SliderToMinimum); break;
    case Qt::Key_End: triggerAction(SliderToMaximum); break;
    default: QScrollBar::keyPressEvent(e); return;
    }
    e->accept();
}

namespace {
QString nomeSchermo(const QString &nome) { return nome; }

int lato(const QString &nome) { return nome.endsWith(u'1') ? 1 : nome.endsWith(u'2') ? 2 : 3; }
} // namespace

FormEditore::FormEditore(const ImpostazioniEditore &imp)
    : Form(nomeSchermo(imp.Nome), LarghezzaEditore, AltezzaEditore)
{
    setWindowTitle(QStringLiteral("Coppie vivaci"));
    setFont(FontGioco(QStringLiteral("Arial"), 11));
    editore = std::make_unique<Editore>(imp, this);
    editore->Proprietario = this;

    BarraMenu = new QMenuBar(this);
    mnuEsci = BarraMenu->addAction(QStringLiteral("Esci"));
    mnuEsci->setObjectName(QStringLiteral("mnuEsci"));
    connect(mnuEsci, &QAction::triggered, this, &FormEditore::mnuEsci_Click);

    area = new QWidget(this);
    area->setGeometry(0, 0, PixelDaTwips(LarghezzaEditore), PixelDaTwips(AltezzaEditore));
    creaControlli();
    resize(PixelDaTwips(LarghezzaEditore), PixelDaTwips(AltezzaEditore) + BarraMenu->sizeHint().height());

    if (Sfogliatore *s = editore->Miniature())
        connect(s, &Sfogliatore::Cambiato, this, [this] { aggiornaMiniature(); });
}

FormEditore::~FormEditore()
{
    if (attesaMostrata)
        QApplication::restoreOverrideCursor();
}

void FormEditore::resizeEvent(QResizeEvent *e)
{
    const int alta = BarraMenu->sizeHint().height();
    BarraMenu->setGeometry(0, 0, width(), alta);
    area->setGeometry(0, alta, width(), qMax(0, height() - alta));
    Form::resizeEvent(e);
}

void FormEditore::creaControlli()
{
    const ImpostazioniEditore &imp = editore->Imp;
    // The panel first, so the controls inside it have their parent.
    QWidget *frame1 = nullptr;
    for (const ControlloEditore &c : imp.Controlli)
        if (c.Nome == QLatin1String("Frame1"))
            frame1 = creaControllo(c, area);
    for (const ControlloEditore &c : imp.Controlli)
        if (c.Nome != QLatin1String("Frame1"))
            creaControllo(c, c.DentroFrame1 ? frame1 : area);
    if (frame1)
        frame1->raise();
}

QWidget *FormEditore::creaControllo(const ControlloEditore &c, QWidget *padre)
{
    QWidget *w = nullptr;
    switch (c.Tipo) {
    case TipoControllo::Etichetta: {
        auto *l = new QLabel(c.Caption, padre);
        l->setWordWrap(true);
        l->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        w = l;
        break;
    }
    case TipoControllo::Barra: {
        auto *b = new BarraCoppie(padre);
        b->setAccessibleName(QStringLiteral("Coppia"));
        b->setPageStep(1);
        b->setFocusPolicy(Qt::StrongFocus);
        w = b;
        break;
    }
    case TipoControllo::Pulsante:
        w = new PulsanteACapo(c.Caption, padre);
        w->setAccessibleName(c.Caption);
        break;
    case TipoControllo::Filmato: {
        auto *f = new Filmato(padre);
        // a preview answers the pointer as the reward does
        f->ImpostaCliccabile(true);
        f->setAccessibleName(QStringLiteral("Filmato"));
        w = f;
        break;
    }
    case TipoControllo::Casella: {
        auto *k = new CasellaACapo(c.Caption, padre);
        w = k;
        break;
    }
    case TipoControllo::Testo: {
        auto *t = new QLineEdit(padre);
        t->setAccessibleName(QStringLiteral("Parola"));
        QFont f = font();
        f.setPointSize(14);
        t->setFont(f);
        w = t;
        break;
    }
    case TipoControllo::Immagine: {
        auto *i = new Etichetta(padre);
        i->setScaledContents(true);
        i->setFrameShape(QFrame::Box);
        i->setAccessibleName(QStringLiteral("Immagine"));
        i->setCursor(Qt::PointingHandCursor);
        // Reached with Tab and chosen with Enter or Space, as well as with the mouse.
        i->setFocusPolicy(Qt::StrongFocus);
        i->setStyleSheet(QStringLiteral("QLabel { border: 1px solid black; } QLabel:focus { border: 3px solid #2060e0; }"));
        i->installEventFilter(this);
        w = i;
        break;
    }
    case TipoControllo::Cornice: {
        auto *g = new QGroupBox(c.Caption, padre);
        g->setAutoFillBackground(true);
        w = g;
        break;
    }
    case TipoControllo::ElencoUnita: {
        auto *d = new QComboBox(padre);
        d->setAccessibleName(QStringLiteral("Unità"));
        w = d;
        break;
    }
    case TipoControllo::ElencoCartelle: {
        auto *d = new QListWidget(padre);
        d->setAccessibleName(QStringLiteral("Cartelle"));
        w = d;
        break;
    }
    case TipoControllo::ElencoFile: {
        auto *d = new QListWidget(padre);
        d->setAccessibleName(QStringLiteral("File"));
        w = d;
        break;
    }
    case TipoControllo::Miniature: {
        auto *v = new QListWidget(padre);
        v->setViewMode(QListView::IconMode);
        v->setIconSize(QSize(Sfogliatore::LatoMiniatura, Sfogliatore::LatoMiniatura));
        v->setResizeMode(QListView::Adjust);
        v->setMovement(QListView::Static);
        v->setWordWrap(true);
        v->setTextElideMode(Qt::ElideLeft);
        v->setGridSize(QSize(Sfogliatore::LatoMiniatura + 60, Sfogliatore::LatoMiniatura + 44));
        v->setUniformItemSizes(true);
        // Laid out a batch at a time, so a long list never holds the window.
        v->setLayoutMode(QListView::Batched);
        v->setBatchSize(64);
        v->setAccessibleName(QStringLiteral("Miniature"));
        w = v;
        break;
    }
    case TipoControllo::ImmagineNascosta: {
        auto *i = new QLabel(padre);
        i->setScaledContents(true);
        w = i;
        break;
    }
    case TipoControllo::Avanzamento: {
        auto *p = new QProgressBar(padre);
        p->setTextVisible(false);
        p->setAccessibleName(QStringLiteral("Avanzamento"));
        w = p;
        break;
    }
    }
    w->setObjectName(c.Nome);
    ScriviGeometria(w, {double(c.Rettangolo.x()), double(c.Rettangolo.y()), double(c.Rettangolo.width()),
                        double(c.Rettangolo.height())});
    Controlli[c.Nome] = w;
    collega(c.Nome, w);
    return w;
}

void FormEditore::collega(const QString &nome, QWidget *w)
{
    Editore *e = editore.get();
    const bool miniature = e->Imp.HaImmagini();
    if (auto *b = qobject_cast<QPushButton *>(w)) {
        std::function<void()> azione;
        if (nome == QLatin1String("Command1"))
            azione = [e] { e->Command1_Click(); };
        else if (nome == QLatin1String("Command2"))
            azione = [e] { e->Command2_Click(); };
        else if (nome == QLatin1String("Command3"))
            azione = miniature ? std::function<void()>([e] { e->CommandChiudiMiniature_Click(); })
                               : std::function<void()>([e] { e->Command3_Click(); });
        else if (nome == QLatin1String("Command4"))
            azione = [e] { e->Command4_Click(); };
        else if (nome == QLatin1String("Command5"))
            azione = [e] { e->Command5_Click(); };
        else if (nome == QLatin1String("Command6"))
            azione = [e] { e->Command6_Click(); };
        else if (nome == QLatin1String("Command7"))
            azione = [e] { e->Command7_Click(); };
        else if (nome == QLatin1String("CommandSuono1"))
            azione = [e] { e->CommandSuono1_Click(); };
        else if (nome == QLatin1String("CommandSuono2"))
            azione = [e] { e->CommandSuono2_Click(); };
        else if (nome == QLatin1String("CommandSottocartella"))
            azione = [e] { e->CommandSottocartella_Click(); };
        else if (nome == QLatin1String("CommandModificaLista"))
            azione = [e] { e->CommandModificaLista_Click(); };
        connect(b, &QPushButton::clicked, this, [azione] {
            if (azione)
                azione();
        });
    } else if (auto *k = qobject_cast<QCheckBox *>(w)) {
        if (nome == QLatin1String("Check1"))
            connect(k, &QCheckBox::clicked, this, [e](bool v) { e->Check1_Click(v); });
        else if (nome == QLatin1String("CheckCopiaFile"))
            connect(k, &QCheckBox::clicked, this, [e](bool v) { e->CheckCopiaFile_Click(v); });
        else if (nome == QLatin1String("CheckAnteprima"))
            connect(k, &QCheckBox::clicked, this, [e](bool v) { e->CheckAnteprima_Click(v); });
    } else if (auto *s = qobject_cast<QScrollBar *>(w)) {
        connect(s, &QScrollBar::valueChanged, this, [this, e](int v) {
            if (!aggiornando)
                e->HScroll1_Scorri(v);
        });
    } else if (auto *t = qobject_cast<QLineEdit *>(w)) {
        connect(t, &QLineEdit::textEdited, this, [e](const QString &testo) { e->Text1_Scrivi(testo); });
    } else if (auto *i = qobject_cast<Etichetta *>(w)) {
        const int l = lato(nome);
        connect(i, &Etichetta::Click, this, [e, l] { e->Image_Click(l); });
    } else if (nome == QLatin1String("ListView1")) {
        auto *v = qobject_cast<QListWidget *>(w);
        auto scelta = [e](QListWidgetItem *item) {
            if (item)
                e->ListView1_Click(item->text());
        };
        connect(v, &QListWidget::itemClicked, this, scelta);
        connect(v, &QListWidget::itemActivated, this, scelta);
    } else if (nome == QLatin1String("Dir1")) {
        auto *d = qobject_cast<QListWidget *>(w);
        connect(d, &QListWidget::itemActivated, this, [e](QListWidgetItem *item) {
            if (item && e->Miniature())
                e->Miniature()->ImpostaDir1(item->data(Qt::UserRole).toString());
        });
    } else if (nome == QLatin1String("Drive1")) {
        auto *d = qobject_cast<QComboBox *>(w);
        connect(d, &QComboBox::activated, this, [this, e, d](int indice) {
            if (!aggiornando && e->Miniature())
                e->Miniature()->Drive1_Change(d->itemData(indice).toString());
        });
    }
}

bool FormEditore::eventFilter(QObject *o, QEvent *e)
{
    if (e->type() == QEvent::KeyPress) {
        const int tasto = static_cast<QKeyEvent *>(e)->key();
        if (tasto == Qt::Key_Return || tasto == Qt::Key_Enter || tasto == Qt::Key_Space) {
            const QString nome = o->objectName();
            if (nome == QLatin1String("Image1") || nome == QLatin1String("Image2")) {
                editore->Image_Click(lato(nome));
                return true;
            }
        }
    }
    return Form::eventFilter(o, e);
}

void FormEditore::Form_Load()
{
    TraduciForm(this);
    for (auto &[nome, w] : Controlli) {
        // What a screen reader says: the caption, or the tip the language file gives.
        if (!w->toolTip().isEmpty() && !qobject_cast<QAbstractButton *>(w))
            w->setAccessibleName(w->toolTip());
        // The captions the language gives are the form's captions from now on.
        QString caption;
        if (LeggiCaption(w, &caption) && editore->Controlli.count(nome))
            editore->C(nome).Caption = caption;
    }
    CreaResizeCondiviso(this);
    editore->Form_Load();
}

void FormEditore::Form_Activate()
{
    CopriSchermo();
    editore->Form_Activate();
}

void FormEditore::Form_Unload()
{
    for (int k = 1; k <= 3; ++k)
        if (auto *f = Controllo<Filmato>(QStringLiteral("ShockwaveFlash%1").arg(k)))
            f->Stop();
}

void FormEditore::mnuEsci_Click()
{
    if (!editore->mnuEsci_Click())
        return;
    Schermi::Mostra(QStringLiteral("FormMenu"));
    Schermi::Scarica(this);
}

void FormEditore::aggiornaFilm(int k)
{
    auto *f = Controllo<Filmato>(QStringLiteral("ShockwaveFlash%1").arg(k));
    if (!f)
        return;
    const StatoFilm &s = editore->ShockwaveFlash[k];
    if (caricamentiFilm[k] != s.Caricamenti) {
        caricamentiFilm[k] = s.Caricamenti;
        f->setMovie(s.Movie);
    }
    if (riavvolgimentiFilm[k] != s.Riavvolgimenti) {
        riavvolgimentiFilm[k] = s.Riavvolgimenti;
        f->StopPlay();
    }
    if (s.InRiproduzione && !f->InRiproduzione())
        f->Play();
    else if (!s.InRiproduzione && f->InRiproduzione())
        f->Stop();
}

void FormEditore::aggiornaFigura(int k)
{
    auto *i = Controllo<QLabel>(QStringLiteral("Image%1").arg(k));
    if (!i)
        return;
    const StatoFigura &s = editore->Image[k];
    if (caricamentiFigura[k] == s.Caricamenti)
        return;
    caricamentiFigura[k] = s.Caricamenti;
    if (s.Picture.isNull())
        i->clear();
    else
        i->setPixmap(QPixmap::fromImage(s.Picture));
}

void FormEditore::Aggiorna()
{
    aggiornando = true;
    Editore &e = *editore;
    for (auto &[nome, w] : Controlli) {
        auto it = e.Controlli.find(nome);
        if (it == e.Controlli.end())
            continue;
        const StatoControllo &s = it->second;
        if (w->isEnabled() != s.Enabled)
            w->setEnabled(s.Enabled);
        QString caption;
        if (LeggiCaption(w, &caption) && caption != s.Caption && !qobject_cast<QGroupBox *>(w))
            ScriviCaption(w, s.Caption);
    }
    if (auto *b = Controllo<QScrollBar>(QStringLiteral("HScroll1"))) {
        b->setRange(qMin(e.HScroll1.Min, e.HScroll1.Max), qMax(e.HScroll1.Min, e.HScroll1.Max));
        b->setValue(e.HScroll1.Value);
    }
    const std::pair<const char *, bool> caselle[] = {
        {"Check1", e.Check1}, {"CheckCopiaFile", e.CheckCopiaFile}, {"CheckAnteprima", e.CheckAnteprima}};
    for (const auto &[nome, valore] : caselle)
        if (auto *k = Controllo<QCheckBox>(QLatin1String(nome)); k && k->isChecked() != valore)
            k->setChecked(valore);
    if (auto *t = Controllo<QLineEdit>(QStringLiteral("Text1")); t && t->text() != e.Text1)
        t->setText(e.Text1);
    for (int k = 1; k <= 3; ++k)
        aggiornaFilm(k);
    for (int k = 1; k <= 2; ++k)
        aggiornaFigura(k);

    // Visibility last, the panel on top when it shows.
    for (auto &[nome, w] : Controlli) {
        auto it = e.Controlli.find(nome);
        if (it == e.Controlli.end())
            continue;
        if (nome == QLatin1String("barr1"))
            continue; // the browser's own
        bool visibile = it->second.Visible;
        if (nome.startsWith(QLatin1String("ShockwaveFlash")))
            visibile = e.ShockwaveFlash[lato(nome)].Visible;
        if (w->isVisibleTo(w->parentWidget()) != visibile)
            w->setVisible(visibile);
    }
    if (QWidget *f = Controllo<QWidget>(QStringLiteral("Frame1")); f && e.C(QStringLiteral("Frame1")).Visible) {
        if (e.Frame1AllOrigine) {
            if (e.Imp.HaImmagini())
                f->setGeometry(0, 0, area->width(), area->height());
            else
                f->move(0, 0);
        }
        f->raise();
    }
    aggiornando = false;
    aggiornaMiniature();
}

void FormEditore::aggiornaMiniature()
{
    Sfogliatore *s = editore->Miniature();
    if (!s)
        return;
    aggiornando = true;
    if (auto *d = Controllo<QComboBox>(QStringLiteral("Drive1"))) {
        if (d->count() != s->Unita.size()) {
            d->clear();
            for (const QString &u : s->Unita)
                d->addItem(QDir::toNativeSeparators(u), u);
        }
        const int i = d->findData(s->Drive1);
        if (i >= 0 && d->currentIndex() != i)
            d->setCurrentIndex(i);
    }
    if (auto *d = Controllo<QListWidget>(QStringLiteral("Dir1")); d && d->property("percorso").toString() != s->Dir1Path) {
        d->setProperty("percorso", s->Dir1Path);
        d->clear();
        for (const VoceCartella &v : s->CartelleDir1()) {
            auto *item = new QListWidgetItem(QString(v.Livello * 2, u' ') + (v.Aperta ? QStringLiteral("▾ ") : QStringLiteral("▸ ")) + v.Nome, d);
            item->setData(Qt::UserRole, v.Percorso);
            if (v.Percorso == s->Dir1Path) {
                QFont f = item->font();
                f.setBold(true);
                item->setFont(f);
                d->setCurrentItem(item);
            }
        }
    }
    if (auto *f = Controllo<QListWidget>(QStringLiteral("File1")); f && f->count() != s->File1.size()) {
        f->clear();
        f->addItems(s->File1);
    }
    if (auto *v = Controllo<QListWidget>(QStringLiteral("ListView1"))) {
        if (s->ListView1.size() < vociMostrate || (vociMostrate > 0 && v->count() > 0
                                                  && v->item(0)->text() != s->ListView1.value(0))) {
            v->clear();
            vociMostrate = 0;
        }
        for (; vociMostrate < s->ListView1.size(); ++vociMostrate) {
            const QString &chiave = s->ListView1[vociMostrate];
            auto *item = new QListWidgetItem(chiave, v);
            // The picture itself, shared with the image list: no second copy of each thumbnail.
            item->setData(Qt::DecorationRole, s->ImageList1.value(chiave));
            item->setToolTip(chiave);
        }
    }
    if (auto *b = Controllo<QProgressBar>(QStringLiteral("barr1"))) {
        b->setRange(s->barr1.Min, s->barr1.Max);
        b->setValue(s->barr1.Value);
        if (b->isVisibleTo(b->parentWidget()) != s->barr1.Visible)
            b->setVisible(s->barr1.Visible);
    }
    if (s->PuntatoreAttesa != attesaMostrata) {
        attesaMostrata = s->PuntatoreAttesa;
        if (attesaMostrata)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    }
    aggiornando = false;
}
