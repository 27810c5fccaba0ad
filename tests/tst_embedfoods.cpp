// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// The build step that turns the table of foods into C++.
class EmbedFoodsTest final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder;
    QString output;

    // The exit code; what it says is its error.
    int embed(const QByteArray &table)
    {
        QFile file(folder->filePath(QStringLiteral("foods.tsv")));
        if (!file.open(QIODevice::WriteOnly) || file.write(table) != table.size())
            qFatal("the table cannot be written");
        file.close();
        return run({file.fileName(), output});
    }
    int run(const QStringList &arguments)
    {
        QProcess process;
        process.start(QStringLiteral(EMBED_FOODS), arguments);
        process.waitForFinished();
        said = process.readAllStandardError();
        return process.exitCode();
    }
    QByteArray said;

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        output = folder->filePath(QStringLiteral("names.inc"));
    }

    void theNamesStandOneAfterTheOtherWithTheirLengths()
    {
        QCOMPARE(embed("00001\tApple, raw\n00002\tBread\n"), 0);
        QFile file(output);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(),
            QByteArray("// Made by embed-foods from foods.tsv; changes are made there.\n"
                       "constexpr char16_t names[] =\n"
                       "    u\"Apple, raw\"\n"
                       "    u\"Bread\"\n"
                       "    ;\n"
                       "constexpr unsigned char lengths[] = {\n"
                       "    10, 5,\n"
                       "};\n"));
    }

    void whatWouldSpoilTheTextIsRefusedWithItsLine_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("no tab") << QByteArray("00002 Bread");
        QTest::newRow("no name") << QByteArray("00002\t");
        QTest::newRow("a quotation mark") << QByteArray("00002\tBread \"rye\"");
        QTest::newRow("a backslash") << QByteArray("00002\tBread\\n");
        QTest::newRow("a question mark, which could begin a trigraph") << QByteArray("00002\tBread?");
        QTest::newRow("a control character") << QByteArray("00002\tBre\ad");
        QTest::newRow("beyond ASCII") << QByteArray("00002\tBr\xc3\xb6tchen");
        QTest::newRow("a length that a byte cannot hold") << "00002\t" + QByteArray(256, 'b');
    }

    void whatWouldSpoilTheTextIsRefusedWithItsLine()
    {
        QFETCH(QByteArray, line);
        QCOMPARE(embed("00001\tApple, raw\n" + line + '\n'), 1);
        QVERIFY2(said.contains("foods.tsv:2: "), said.constData());
        QVERIFY(!QFile::exists(output));
    }

    void aTableThatCannotBeReadIsRefused()
    {
        QCOMPARE(embed({}), 1);
        QVERIFY2(said.contains("cannot be read"), said.constData());
        QCOMPARE(run({folder->filePath(QStringLiteral("nothing there")), output}), 1);
        QVERIFY2(said.contains("nothing there: cannot be read"), said.constData());
    }

    void anOutputThatCannotBeWrittenIsAnError()
    {
        output = QStringLiteral("/dev/full");
        QCOMPARE(embed("00001\tApple, raw\n"), 1);
        QVERIFY2(said.contains("/dev/full: cannot be written"), said.constData());
    }

    void withoutTwoFilesItSaysHowItIsUsed()
    {
        QCOMPARE(run({output}), 2);
        QVERIFY2(said.startsWith("usage: "), said.constData());
    }
};

QTEST_GUILESS_MAIN(EmbedFoodsTest)
#include "tst_embedfoods.moc"
