#include "menu/FormMenu.h"

#include "menu/ControlliMenu.h"
#include "menu/MisuraTesto.h"
#include "menu/SceltaMemory.h"
#include "platform/Controlli.h"
#include "platform/CursoreGioco.h"
#include "platform/Twips.h"
#include "profiles/Profilo.h"
#include "profiles/StatoProcesso.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

void FormMenu::Timer1_Timer()
{
    const bool maiuscolo1 = Profilo.Maiuscolo1;

    // 1. The pointer.
    const QCursor puntatore = CursoreScelto(Profilo.DisabilitaMousePersonalizzato);
    QList<QWidget *> conPuntatore = {Frame1,  Frame2,  Frame3,    Command1[0], Command1[1], Combo1,
                                     CommandSi, CommandNo, ImageSi, PictureSi, ImageNo,   LabelNo,
                                     LabelSi, PictureNo, ImageGioca, PictureGioca, ImageEsci, PictureEsci};
    for (auto *gruppo : {&Option2, &Option3})
        for (auto &[indice, o] : *gruppo)
            conPuntatore << o;
    for (QWidget *w : conPuntatore)
        w->setCursor(puntatore);

    // 2. The measure starts again.
    QFont misura = LabelDimensionaFont->font();
    misura.setPointSize(12);
    LabelDimensionaFont->setFont(misura);
    LabelDimensionaFont->setText(QStringLiteral("a"));

    // 3. Capitals; nothing turns them back before the next load.
    if (maiuscolo1)
        maiuscoleCaption();

    // 4.
    if (auto it = Option3.find(NumeroGiocatori - 1); it != Option3.end())
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);

    auto twips = [](QWidget *w) { return LeggiGeometria(w); };
    auto misuraCon = [&](const QString &testo, int da, const std::function<bool(int, int)> &condizione) {
        LabelDimensionaFont->setText(testo);
        const int punti = CresciFont(misura, testo, da, condizione);
        misura.setPointSize(punti);
        LabelDimensionaFont->setFont(misura);
        return punti;
    };

    // 5. Both large buttons take one size, from the longer caption.
    {
        const QString testo = (LabelGioca->text().size() > LabelEsci->text().size() ? LabelGioca->text()
                                                                                   : LabelEsci->text())
                              + QStringLiteral("   ");
        const int larghezza = int(twips(LabelEsci).Width);
        const int punti = misuraCon(testo, 12, [=](int w, int) { return w < larghezza; });
        ImpostaPunti(LabelGioca, punti);
        ImpostaPunti(LabelEsci, punti);
        MisureVestizione.etichette = punti;
    }

    // 6. A first fit of the kinds of game, on a fixed measure that is not a caption.
    {
        const int meta = int(twips(Option1[0]).Width / 2);
        const int punti = misuraCon(QStringLiteral("immagini - immagini"), 12, [=](int w, int) { return w < meta; });
        for (auto &[indice, o] : Option1)
            ImpostaPunti(o, punti);
        MisureVestizione.opzioniPrima = punti;
    }

    // 7. All options take one size, from the longest caption of the first group.
    {
        QString testo = QStringLiteral("99");
        for (auto &[indice, o] : Option1)
            if (testo.size() < o->text().size())
                testo = o->text();
        testo += QStringLiteral("      ");
        const GeometriaTwips g = twips(Option1[0]);
        const int larghezza = int(g.Width), altezza = int(g.Height);
        const int punti = misuraCon(testo, 14, [=](int w, int h) { return w < larghezza && h < altezza; });
        for (auto *gruppo : {&Option1, &Option2, &Option3})
            for (auto &[indice, o] : *gruppo)
                ImpostaPunti(o, punti);
        MisureVestizione.opzioni = punti;
    }

    // 8. The frames.
    {
        QString testo = Frame1->title();
        for (QGroupBox *f : {Frame2, Frame3})
            if (f->title().size() > testo.size())
                testo = f->title();
        testo += QStringLiteral("     ");
        const int larghezza = int(twips(Frame2).Width);
        const int altezza = int(twips(Option2[4]).Height) / 3 * 2;
        const int punti = misuraCon(testo, 14, [=](int w, int h) { return w < larghezza && h < altezza; });
        for (QGroupBox *f : {Frame1, Frame2, Frame3})
            ImpostaPunti(f, punti);
        MisureVestizione.cornici = punti;
    }

    // 9. The players.
    Combo1->clear();
    Combo1->addItems(ElencoProfili(maiuscolo1));

    // 10. Selecting the current profile acts as a choice of the user.
    for (int i = 0; i < Combo1->count(); ++i) {
        if (Combo1->itemText(i).toUpper() == NomeUtente.toUpper()) {
            Combo1->setCurrentIndex(i);
            Combo1_Click();
        }
    }

    // 11. A lone player is not offered a choice.
    if (Combo1->count() > 1) {
        ImpostaPunti(Combo1, qMax(14, LabelGioca->font().pointSize() - 20));
        // A drop-down list takes the height of its font, whatever its design height.
        Combo1->resize(Combo1->width(), Combo1->sizeHint().height());
        Combo1->show();
    } else {
        Combo1->hide();
    }

    // 12. The choices come back.
    if (auto it = Option1.find(Profilo.TipoMemory); it != Option1.end()) {
        it->second->ImpostaValore(true);
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
    }
    AggiornaFiles();
    if (auto it = Option2.find(Profilo.NumeroTessere); it != Option2.end()) {
        it->second->ImpostaValore(true);
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
    }
    if (auto it = Option3.find(NumeroGiocatori - 1); it != Option3.end()) {
        it->second->ImpostaValore(true);
        ScriviColoreSfondo(it->second, ColoreOpzioneScelta);
    }

    // 13. What keeps the tick from repeating.
    Timer1->stop();
}
