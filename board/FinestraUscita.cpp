#include "board/FinestraUscita.h"

namespace FinestraUscita {

void Colori::MouseMoveNo()
{
    if (CommandNo == ColoreIndicato)
        return;
    CommandSi = ColoreRiposo;
    CommandNo = ColoreIndicato;
    PictureSi = CommandSi;
    PictureNo = CommandNo;
}

void Colori::MouseMoveSi()
{
    if (CommandSi == ColoreIndicato)
        return;
    CommandNo = ColoreRiposo;
    CommandSi = ColoreIndicato;
    PictureSi = CommandSi;
    PictureNo = CommandNo;
}

void Colori::MouseMoveCornice()
{
    if (CommandSi == ColoreRiposo && CommandNo == ColoreRiposo)
        return;
    if (CommandSi != ColoreRiposo)
        CommandSi = ColoreRiposo;
    if (CommandNo != ColoreRiposo)
        CommandNo = ColoreRiposo;
    if (PictureSi != CommandSi)
        PictureSi = CommandSi;
    if (PictureNo != CommandNo)
        PictureNo = CommandNo;
}

QString CaptionPiuLunga(const QString &si, const QString &no) { return si.size() > no.size() ? si : no; }

double AdattaCarattere(const QString &testo, double partenza, double larghezza,
                       const std::function<QSizeF(const QString &, double)> &misura, double altezza)
{
    double punti = partenza;
    // An empty text never grows; the platform's limit ends the loop.
    while (misura(testo, punti).width() < larghezza && punti < 2048) {
        if (misura(testo, punti + 1).height() > altezza)
            break;
        punti += 1;
    }
    return punti;
}

QPoint PosizionePortaMouse(int top, int left, int width, int height)
{
    return QPoint(top + (-height) / 2, left + (-width) / 2);
}

} // namespace FinestraUscita
