#include "platform/media/ImmagineAnimata.h"

#include "platform/Percorsi.h"

#include <QMovie>

ImmagineAnimata::ImmagineAnimata(QWidget *parent) : QLabel(parent)
{
    setScaledContents(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ImmagineAnimata::setFile(const QString &percorso)
{
    if (percorso == file && movie)
        return;
    file = percorso;
    setMovie(nullptr);
    delete movie;
    movie = nullptr;
    if (percorso.isEmpty())
        return;
    movie = new QMovie(PercorsoLocale(percorso), QByteArray(), this);
    if (!movie->isValid()) {
        delete movie;
        movie = nullptr;
        return;
    }
    setMovie(movie);
    movie->jumpToFrame(0);
}

void ImmagineAnimata::Avvia()
{
    if (movie && movie->state() != QMovie::Running)
        movie->start();
}

bool ImmagineAnimata::Avviata() const { return movie && movie->state() == QMovie::Running; }
