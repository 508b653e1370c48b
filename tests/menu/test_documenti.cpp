// The two documents stand beside the program, made by the build as PDF files.

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

namespace {
QByteArray leggi(const QString &nome)
{
    QFile f(QStringLiteral(COPPIE_PROGRAMMA "/") + nome);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

int pagine(const QByteArray &pdf)
{
    static const QRegularExpression pagina(QStringLiteral("/Type\\s*/Page(?![s\\w])"));
    int n = 0;
    for (auto it = pagina.globalMatch(QString::fromLatin1(pdf)); it.hasNext(); it.next())
        ++n;
    return n;
}
} // namespace

class ProvaDocumenti : public QObject
{
    Q_OBJECT

private slots:
    void theDocumentsArePdfFilesBesideTheProgram_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<int>("minimoPagine");
        QTest::newRow("manual") << QStringLiteral("tesselo.pdf") << 3;
        QTest::newRow("about the game") << QStringLiteral("documento.pdf") << 1;
    }
    void theDocumentsArePdfFilesBesideTheProgram()
    {
        QFETCH(QString, nome);
        QFETCH(int, minimoPagine);
        const QByteArray pdf = leggi(nome);
        QVERIFY2(pdf.startsWith("%PDF-"), qPrintable(nome));
        QVERIFY(pdf.trimmed().endsWith("%%EOF"));
        QVERIFY2(pagine(pdf) >= minimoPagine, qPrintable(QString::number(pagine(pdf))));
    }
};

QTEST_APPLESS_MAIN(ProvaDocumenti)
#include "test_documenti.moc"
