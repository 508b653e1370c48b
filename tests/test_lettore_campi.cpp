#include "platform/LettoreCampi.h"

#include <QtTest>

class TestLettoreCampi : public QObject
{
    Q_OBJECT
private:
    static QStringList tutti(const QString &testo)
    {
        LettoreCampi l(testo);
        QStringList r;
        QString c;
        while (!l.Fine() && l.LeggiCampo(&c))
            r << c;
        return r;
    }

private slots:
    void leadingBlanksAreSkipped() { QCOMPARE(tutti(QStringLiteral("   Arial\r\n")), QStringList({"Arial"})); }

    void aQuotedFieldRunsToTheNextQuote()
    {
        QCOMPARE(tutti(QStringLiteral("\"a, b\"\r\nc\r\n")), QStringList({"a, b", "c"}));
    }

    void aCommaEndsAnUnquotedField()
    {
        QCOMPARE(tutti(QStringLiteral("Cane, gatto\r\nx\r\n")), QStringList({"Cane", "gatto", "x"}));
    }

    void anEmptyLineIsAnEmptyField()
    {
        QCOMPARE(tutti(QStringLiteral("a\r\n\r\n\r\nb\r\n")), QStringList({"a", "", "", "b"}));
    }

    void aNulEndsTheUsefulText()
    {
        QCOMPARE(tutti(QStringLiteral("C:\\x\\a.gif") + QString(4, QChar(0)) + QStringLiteral("\r\nb\r\n")),
                 QStringList({"C:\\x\\a.gif", "b"}));
    }

    void lfAndCrLineEndsAreAccepted()
    {
        QCOMPARE(tutti(QStringLiteral("a\nb\rc")), QStringList({"a", "b", "c"}));
    }

    void readingPastTheEndFails()
    {
        LettoreCampi l(QStringLiteral("a\r\n"));
        QString c;
        QVERIFY(l.LeggiCampo(&c));
        QVERIFY(l.Fine());
        QVERIFY(!l.LeggiCampo(&c));
    }

    void anEmptyTextIsAtTheEndAtOnce()
    {
        LettoreCampi l{QString()};
        QVERIFY(l.Fine());
    }

    void theLineOfAFieldIsKnownForMessages()
    {
        LettoreCampi l(QStringLiteral("a\r\nb\r\nc\r\n"));
        QString c;
        l.LeggiCampo(&c);
        l.LeggiCampo(&c);
        QCOMPARE(l.Riga(), 2);
    }
};

QTEST_APPLESS_MAIN(TestLettoreCampi)
#include "test_lettore_campi.moc"
