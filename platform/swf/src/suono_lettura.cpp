// Reading the sound tags: DefineSound, the sound info of StartSound,
// SoundStreamHead, and the names films give their sounds.

#include "modello.h"

namespace swf {

int frequenzaDaCodice(int codice)
{
    static const int tabella[4] = {5512, 11025, 22050, 44100};
    return tabella[codice & 3];
}

void leggiDefineSound(Lettore &t, Film &film)
{
    const uint16_t id = t.u16();
    auto s = std::make_shared<Suono>();
    s->formato = static_cast<int>(t.ub(4));
    s->frequenza = frequenzaDaCodice(static_cast<int>(t.ub(2)));
    s->sedicibit = t.flag();
    s->stereo = t.flag();
    s->campioni = t.u32();
    if (!t.ok())
        return;
    s->dati = QByteArray(reinterpret_cast<const char *>(t.qui()), static_cast<qsizetype>(t.restanti()));
    // the first definition of an id wins, as for the other characters
    film.suoni.emplace(id, std::move(s));
}

InfoSuono leggiInfoSuono(Lettore &t)
{
    InfoSuono i;
    t.allinea();
    t.ub(2);
    i.ferma = t.flag();
    i.nonMultiplo = t.flag();
    const bool inviluppo = t.flag();
    const bool ripetizioni = t.flag();
    i.haFine = t.flag();
    i.haInizio = t.flag();
    if (i.haInizio)
        i.inizio = t.u32();
    if (i.haFine)
        i.fine = t.u32();
    if (ripetizioni)
        i.ripetizioni = t.u16();
    if (inviluppo) {
        const int n = t.u8();
        for (int k = 0; k < n && t.ok(); ++k) {
            PuntoInviluppo p;
            p.pos44 = t.u32();
            p.sinistra = t.u16();
            p.destra = t.u16();
            if (t.ok())
                i.inviluppo.push_back(p);
        }
    }
    return i;
}

std::shared_ptr<Flusso> leggiTestaFlusso(Lettore &t)
{
    auto f = std::make_shared<Flusso>();
    t.u8();  // the rate the author asked to play at: the data's own rate is the one heard
    f->formato = static_cast<int>(t.ub(4));
    f->frequenza = frequenzaDaCodice(static_cast<int>(t.ub(2)));
    f->sedicibit = t.flag();
    f->stereo = t.flag();
    f->campioniPerFotogramma = t.u16();
    if (f->formato == Mp3 && t.restanti() >= 2)
        f->latenza = t.s16();
    if (!t.ok())
        return nullptr;
    return f;
}

void leggiNomiEsportati(Lettore &t, std::map<QByteArray, uint16_t> &nomi)
{
    const int n = t.u16();
    for (int k = 0; k < n && t.ok(); ++k) {
        const uint16_t id = t.u16();
        const QByteArray nome = t.stringa();
        if (t.ok() && !nome.isEmpty() && nomi.size() < 65536)
            nomi.emplace(nome, id);
    }
}

} // namespace swf
