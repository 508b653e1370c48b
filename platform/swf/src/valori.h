#pragma once

// The values of the films' scripts (AVM1): numbers, strings, objects,
// functions and references to clips. Objects live in the film's own heap and
// are freed by a mark-and-sweep pass between ticks, so objects that refer to
// each other never leak.

#include <QByteArray>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace swf {

struct Clip;
struct Istanza;
struct Oggetto;
struct Contesto;

struct Valore {
    enum Tipo : uint8_t { Indefinito, Nullo, Booleano, Numero, Stringa, Ogg, RifClip, RifIstanza } tipo = Indefinito;
    double n = 0;
    QByteArray s;
    Oggetto *o = nullptr;             // Ogg: owned by the film's heap
    std::weak_ptr<Clip> clip;         // RifClip
    std::weak_ptr<Istanza> istanza;   // RifIstanza: a text field or a button

    static Valore numero(double v) { Valore x; x.tipo = Numero; x.n = v; return x; }
    static Valore stringa(QByteArray v) { Valore x; x.tipo = Stringa; x.s = std::move(v); return x; }
    static Valore booleano(bool v) { Valore x; x.tipo = Booleano; x.n = v ? 1 : 0; return x; }
    static Valore nullo() { Valore x; x.tipo = Nullo; return x; }
    static Valore oggetto(Oggetto *p)
    {
        Valore x;
        if (p) {
            x.tipo = Ogg;
            x.o = p;
        }
        return x;
    }
    static Valore diClip(const std::shared_ptr<Clip> &c)
    {
        Valore x;
        if (c) {
            x.tipo = RifClip;
            x.clip = c;
        }
        return x;
    }
};

// A function written in the film, or one of the player's own.
struct Funzione {
    using Nativa = Valore (*)(Contesto &, const Valore &questo, std::vector<Valore> &argomenti);
    Nativa nativa = nullptr;
    QByteArray codice;  // the whole action block the body lies in
    size_t inizio = 0, fine = 0;
    bool seconda = false;  // DefineFunction2: registers and preloads
    int registri = 4;
    uint16_t opzioni = 0;
    std::vector<std::pair<QByteArray, uint8_t>> parametri;  // name, register (0: none)
    std::vector<Oggetto *> catena;                          // the scope it was made in
    std::weak_ptr<Clip> clip;                               // the timeline it was made on
};

struct Oggetto {
    enum Classe : uint8_t { Generico, Vettore, Attivazione, Funz } classe = Generico;
    std::map<QByteArray, Valore> proprieta;
    Oggetto *proto = nullptr;
    std::unique_ptr<Funzione> funzione;
    bool segnato = false;
};

} // namespace swf
