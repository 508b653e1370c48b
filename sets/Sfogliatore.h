#pragma once

#include <QHash>
#include <QImage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QThreadPool>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

// The old progress bar: it refuses a Max that is not above its Min, and a
// Value outside its range, and keeps what it had.
struct StatoAvanzamento {
    bool Visible = false;
    int Min = 0, Max = 100, Value = 0;
    bool ImpostaMax(int max);
    bool ImpostaValore(int valore);
};

// One line of the folder list: a folder on the way down from the drive's
// root to the open folder, the open folder, or one of its sub-folders.
struct VoceCartella {
    QString Percorso;
    QString Nome;
    int Livello = 0;
    bool Aperta = false; // on the way down or the open folder itself
};

// The thumbnail browser of the image editors, free of widgets: the drive
// list, the folder list, the hidden file list with its pattern, the image
// list keyed by path, the list view, the bar and the busy pointer. The
// pictures are decoded on worker threads at a reduced size and taken in, in
// the order of the file list, a few at a time, so the window keeps answering.
class Sfogliatore final : public QObject
{
    Q_OBJECT
public:
    explicit Sfogliatore(QObject *parent = nullptr);
    ~Sfogliatore() override;

    // Drive1: home first, then the mounted file systems (the drives on Windows).
    QStringList Unita;
    QString Drive1;
    void Drive1_Change(const QString &unita);

    // Dir1: its path; a new path fires the filling.
    QString Dir1Path;
    void ImpostaDir1(const QString &percorso);
    std::vector<VoceCartella> CartelleDir1() const;

    // File1, hidden: what the folder holds that matches the pattern, letter
    // case ignored, in name order.
    QString File1Path;
    QString File1Pattern = QStringLiteral("*.gif");
    QStringList File1;
    void AggiornaFile1();

    // ImageList1: the thumbnails, 100 by 100, keyed by full path; kept for the
    // life of the form, whatever folder is shown.
    QHash<QString, QImage> ImageList1;
    // ListView1: the items' texts, each the key of its picture.
    QStringList ListView1;

    StatoAvanzamento barr1;
    bool PuntatoreAttesa = false;

    // Step 1 of the filling belongs to the form (MiniatureCaricate).
    std::function<void()> AllInizioRiempimento;

    // The change of Dir1: the filling.
    void Dir1_Change();
    bool InCorso() const { return inCorso; }

    // The path of a file of Dir1, as the item's text shows it.
    QString PercorsoVoce(const QString &voce) const;

    // Counted work, for tests: decodings started, those made from a camera's
    // embedded thumbnail, bytes read, the largest decoding allowed, and the
    // most items taken in at one turn of the loop.
    struct Conteggi {
        int Decodifiche = 0;
        int DaMiniatureExif = 0;
        qint64 ByteLetti = 0;
        qint64 ByteDecodificaMassimi = 0;
        int VociPerGiroMassime = 0;
        int Giri = 0;
    } Lavoro;
    static constexpr int VociPerGiro = 16;
    static constexpr int LatoMiniatura = 100;

    // The drive and start folder on this machine.
    static QStringList UnitaDelSistema();
    static QString CartellaIniziale();

signals:
    void Cambiato();
    void RiempimentoFinito();

private:
    struct Esito {
        QImage immagine;
        bool riuscita = false;
    };
    void consegna(int generazione, int indice, Esito esito);
    void prendiInOrdine();
    void fine();

    QThreadPool pool;
    QTimer presa;
    std::shared_ptr<std::atomic<int>> generazioneCorrente;
    int generazione = 0;
    bool inCorso = false;
    QStringList percorsi;
    std::vector<std::optional<Esito>> esiti;
    int prossimo = 0;
};
