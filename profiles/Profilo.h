#pragma once

#include <QString>

// The 21 settings of one player, in the order of their lines in the file.
struct ProfiloGiocatore {
    QString FontParola1;
    QString FontParola2;
    qint16 TipoMemory = 0;     // 0 words-words, 1 words-images, 2 images-images
    qint16 NumeroTessere = 0;  // 4, 6, 8, 12, 16, 18 or 24
    double ColoreFont1 = 0;
    double ColoreSfondoTesto1 = 0;
    double ColoreFont2 = 0;
    double ColoreSfondoTesto2 = 0;
    double ColoreTessere = 0;
    double ColoreScansione = 0;
    double ColoreSfondo = 0;
    bool Suoni = false;
    bool DisabilitaMousePersonalizzato = false;
    qint16 ModoInput = 0;      // 0 mouse, 1 manual scan, 2 automatic scan, 3 keyboard
    qint16 VelocitaScansione = 0; // quarters of a second
    bool Riparti = false;
    bool Riquadro = false;
    qint16 SpessoreRiquadro = 0;
    bool Maiuscolo1 = false;
    bool Maiuscolo2 = false;
    bool ProntiImportati = false;
};

namespace ModoInputValori {
inline constexpr qint16 Mouse = 0;
inline constexpr qint16 ScansioneManuale = 1;
inline constexpr qint16 ScansioneAutomatica = 2;
inline constexpr qint16 Tastiera = 3;
} // namespace ModoInputValori

// The current profile, its name and the path of its file.
inline ProfiloGiocatore Profilo;
inline QString NomeUtente;
inline QString FileUtente;

inline const QString CartellaUtenti = QStringLiteral("C:\\ImpostazioniProgrammiLorea\\tesselo\\utenti\\");
inline const QString ProfiloPredefinito = QStringLiteral("_predefinito");

// The file of a profile by its name: the players' folder, the name, ".ini".
// A name is one file name and never a way out of that folder: a separator in
// it (a name typed with a slash, a file made elsewhere with a backslash in
// its name) becomes '_'.
QString FileDelProfilo(const QString &nome);

void ValoriPredefiniti();
void LeggiProfilo();
void SalvaProfilo();

// The file's text for a profile, and a profile from a file's text; false when
// the text does not hold a whole profile.
QString TestoProfilo(const ProfiloGiocatore &p);
bool ProfiloDaTesto(const QString &testo, ProfiloGiocatore *p);
