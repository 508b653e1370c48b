#pragma once

#include <QLabel>
#include <QString>

class QMovie;

// The animated image of a found pair: a file path, a start, and a text tag
// (the "Tag" property) that holds the path until it is used. GIF and the
// other animated formats Qt reads; a still picture shows still.
class ImmagineAnimata : public QLabel
{
    Q_OBJECT
public:
    explicit ImmagineAnimata(QWidget *parent = nullptr);

    QString File() const { return file; }
    void setFile(const QString &percorso); // a game path
    void Avvia();
    bool Avviata() const;

private:
    QString file;
    QMovie *movie = nullptr;
};
