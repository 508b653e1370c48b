#include "lang/FileProfilo.h"

#include "platform/TestoFile.h"

namespace {
bool nomeSezione(const QString &riga, QString *nome)
{
    const QString t = riga.trimmed();
    if (!t.startsWith(u'['))
        return false;
    const qsizetype fine = t.indexOf(u']');
    *nome = (fine < 0 ? t.mid(1) : t.mid(1, fine - 1)).trimmed();
    return true;
}

bool coppia(const QString &riga, QString *chiave, QString *valore)
{
    const qsizetype uguale = riga.indexOf(u'=');
    if (uguale < 0)
        return false;
    *chiave = riga.left(uguale).trimmed();
    *valore = riga.mid(uguale + 1).trimmed();
    return true;
}
} // namespace

QString LeggiVoceProfiloPrivato(const QString &testo, const QString &sezione, const QString &chiave)
{
    bool dentro = false;
    for (const QString &riga : DividiRighe(testo)) {
        QString nome;
        if (nomeSezione(riga, &nome)) {
            dentro = nome.compare(sezione, Qt::CaseInsensitive) == 0;
            continue;
        }
        QString k, v;
        if (!dentro || !coppia(riga, &k, &v) || k.compare(chiave, Qt::CaseInsensitive) != 0)
            continue;
        if (v.size() >= 2 && (v.front() == u'"' || v.front() == u'\'') && v.back() == v.front())
            v = v.mid(1, v.size() - 2);
        return v.left(LunghezzaMassimaVoce);
    }
    return QString();
}

QString ScriviVoceProfiloPrivato(const QString &testo, const QString &sezione, const QString &chiave,
                                 const QString &valore)
{
    QStringList righe = DividiRighe(testo);
    const QString nuova = chiave + u'=' + valore;
    qsizetype inizioSezione = -1, ultimaDellaSezione = -1;
    for (qsizetype i = 0; i < righe.size(); ++i) {
        QString nome;
        if (nomeSezione(righe[i], &nome)) {
            if (inizioSezione >= 0)
                break;
            if (nome.compare(sezione, Qt::CaseInsensitive) == 0)
                inizioSezione = ultimaDellaSezione = i;
            continue;
        }
        if (inizioSezione < 0)
            continue;
        QString k, v;
        if (coppia(righe[i], &k, &v) && k.compare(chiave, Qt::CaseInsensitive) == 0) {
            righe[i] = nuova;
            return righe.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
        }
        if (!righe[i].trimmed().isEmpty())
            ultimaDellaSezione = i;
    }
    if (inizioSezione >= 0) {
        righe.insert(ultimaDellaSezione + 1, nuova);
    } else {
        righe << u'[' + sezione + u']' << nuova;
    }
    return righe.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}
