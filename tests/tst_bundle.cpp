// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/Bundle.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class BundleTest final : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { Bundle::mainBundle().setResourcePath({}); }

    void findsAResourceByNameTypeAndFolder()
    {
        const QTemporaryDir folder;
        const QString path = makeFile(folder, QStringLiteral("Apricots, raw.xml"));
        Bundle::mainBundle().setResourcePath(folder.path());
        QCOMPARE(pathForFood(QStringLiteral("Apricots, raw")), path);
        QCOMPARE(pathForFood(QStringLiteral("apricots, raw")), QString());
    }

    void aResourceThatTurnsUpLaterIsFoundLater()
    {
        const QTemporaryDir folder;
        Bundle::mainBundle().setResourcePath(folder.path());
        QCOMPARE(pathForFood(QStringLiteral("Poi")), QString());
        const QString path = makeFile(folder, QStringLiteral("Poi.xml"));
        QCOMPARE(pathForFood(QStringLiteral("Poi")), path);
    }

    void aNameThatCannotBeAFileNameHasNoResource()
    {
        const QTemporaryDir folder;
        makeFile(folder, QStringLiteral(".xml"));
        makeFile(folder, QStringLiteral("b.xml"));
        Bundle::mainBundle().setResourcePath(folder.path());
        QCOMPARE(pathForFood(QString()), QString());
        QCOMPARE(pathForFood(QStringLiteral("")), QString());
        QCOMPARE(pathForFood(QStringLiteral("../Database.xml/b")), QString());
        QCOMPARE(pathForFood(QStringLiteral("b.xml") + QChar(u'\0')), QString());
    }

    void withoutAFolderOfItsOwnItLooksBesideTheProgramAndInTheSharedOne()
    {
        const QString program = QCoreApplication::applicationDirPath();
        const QString name = QStringLiteral("a name of this test alone");
        const QString shared = program + QStringLiteral("/../share/provender/Database.xml");
        QVERIFY(QDir().mkpath(shared));
        QFile far(shared + u'/' + name + QStringLiteral(".xml"));
        QVERIFY(far.open(QIODevice::WriteOnly));
        const QString found = pathForFood(name);
        QVERIFY(far.remove());
        QCOMPARE(found, far.fileName());
        QVERIFY(pathForFood(QStringLiteral("Apricots, raw")).startsWith(program + QStringLiteral("/Database.xml/")));
    }

private:
    static QString pathForFood(const QString &name)
    {
        return Bundle::mainBundle().pathForResource(name, QStringLiteral("xml"), QStringLiteral("Database.xml"));
    }

    static QString makeFile(const QTemporaryDir &folder, const QString &name)
    {
        QDir(folder.path()).mkpath(QStringLiteral("Database.xml"));
        QFile file(folder.filePath(QStringLiteral("Database.xml/") + name));
        return file.open(QIODevice::WriteOnly) ? file.fileName() : QString();
    }
};

QTEST_GUILESS_MAIN(BundleTest)
#include "tst_bundle.moc"
