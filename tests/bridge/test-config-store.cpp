// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/config-store.h"
#include "bridge/logger.h"
#include "bridge/value-registry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

#include <cstdio>

namespace {

QJsonObject readJson(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QJsonObject();
    return QJsonDocument::fromJson(file.readAll()).object();
}

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

QByteArray contentOfLog(std::FILE* log)
{
    std::fflush(log);
    std::rewind(log);
    QByteArray text;
    char buffer[1024];
    std::size_t n = 0;
    while ((n = std::fread(buffer, 1, sizeof buffer, log)) > 0)
        text.append(buffer, static_cast<int>(n));
    return text;
}

std::string writeSpot(const bg::Value& v)
{
    return "[spot]" + std::to_string(v.integer(0));
}

bg::Value readSpot(const char*, const char* body)
{
    bg::Value v;
    int n = 0;
    if (std::sscanf(body, "%d", &n) == 1)
        v.setInts(210, n, 0, 0, 0);
    return v;
}

} // namespace

class TestConfigStore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void setWritesJsonTheHostCanRead();
    void valuesSurviveANewStore();
    void changesMadeByTheHostAreSeen();
    void getOrDefaultStoresOnlyAbsentKeys();
    void emptyStringIsKept();
    void typedTextComesBackTyped();
    void writeLeavesNoTemporaryFile();
    void failedWriteLeavesNoTrace();
    void badStoreIsReadAsEmptyAndKeptAside_data();
    void badStoreIsReadAsEmptyAndKeptAside();
    void removeDeletesTheKey();

private:
    QTemporaryDir dir_;
    QString path_;
};

void TestConfigStore::init()
{
    QVERIFY(dir_.isValid());
    path_ = dir_.filePath("Pallo/bridge.json");
    QDir(dir_.path()).removeRecursively();
    QDir().mkpath(dir_.path());
}

void TestConfigStore::setWritesJsonTheHostCanRead()
{
    bg::ConfigStore store(path_.toStdString());
    QVERIFY(store.set("appVersion", bg::Value("1.0.2")));
    QVERIFY(store.set("appUpdateTime", bg::Value("2023.04.26")));
    QVERIFY(store.set("count", bg::Value(3)));
    QVERIFY(store.set("ratio", bg::Value(0.5)));
    QVERIFY(store.set("on", bg::Value(true)));

    const QJsonObject json = readJson(path_);
    QCOMPARE(json.value("appVersion").toString(), QString("1.0.2"));
    QCOMPARE(json.value("appUpdateTime").toString(), QString("2023.04.26"));
    QCOMPARE(json.value("count").toInt(), 3);
    QCOMPARE(json.value("ratio").toDouble(), 0.5);
    QCOMPARE(json.value("on").toBool(), true);
}

void TestConfigStore::valuesSurviveANewStore()
{
    bg::ConfigStore(path_.toStdString()).set("screen.shot.format", bg::Value("jpg"));
    bg::ConfigStore again(path_.toStdString());
    const bg::Value v = again.get("screen.shot.format", bg::Value("png"));
    QCOMPARE(v.type(), bg::TypeId(bg::Value::kString));
    QCOMPARE(v.toStdString(), std::string("jpg"));
    QCOMPARE(again.get("absent", bg::Value("fallback")).toStdString(), std::string("fallback"));
    QVERIFY(again.get("absent").isNull());
}

void TestConfigStore::changesMadeByTheHostAreSeen()
{
    bg::ConfigStore store(path_.toStdString());
    QVERIFY(store.set("screen.shot.path", bg::Value("/old")));
    writeFile(path_, "{\"screen.shot.path\": \"/from/host\", \"hostOnly\": 1}");
    QCOMPARE(store.get("screen.shot.path").toStdString(), std::string("/from/host"));
    QVERIFY(store.set("mine", bg::Value("x")));
    const QJsonObject json = readJson(path_);
    QCOMPARE(json.value("hostOnly").toInt(), 1);
    QCOMPARE(json.value("mine").toString(), QString("x"));
}

void TestConfigStore::getOrDefaultStoresOnlyAbsentKeys()
{
    bg::ConfigStore store(path_.toStdString());
    QVERIFY(!QFile::exists(path_));
    QCOMPARE(store.get_or_default("screen.shot.format", bg::Value("png")).toStdString(),
             std::string("png"));
    QCOMPARE(readJson(path_).value("screen.shot.format").toString(), QString("png"));

    QVERIFY(store.set("screen.shot.format", bg::Value("bmp")));
    QCOMPARE(store.get_or_default("screen.shot.format", bg::Value("png")).toStdString(),
             std::string("bmp"));
    QCOMPARE(readJson(path_).value("screen.shot.format").toString(), QString("bmp"));
}

void TestConfigStore::emptyStringIsKept()
{
    bg::ConfigStore store(path_.toStdString());
    QVERIFY(store.set("screen.shot.path", bg::Value("")));
    const bg::Value v = store.get_or_default("screen.shot.path", bg::Value("/home/u/Desktop"));
    QCOMPARE(v.type(), bg::TypeId(bg::Value::kString));
    QCOMPARE(v.toStdString(), std::string());
    QCOMPARE(readJson(path_).value("screen.shot.path").toString(), QString());
}

void TestConfigStore::typedTextComesBackTyped()
{
    QVERIFY(bg::regist_value_type(210, "spot", writeSpot, readSpot));
    bg::Value spot;
    spot.setInts(210, 44, 0, 0, 0);
    bg::ConfigStore store(path_.toStdString());
    QVERIFY(store.set("spot", spot));
    QCOMPARE(readJson(path_).value("spot").toString(), QString("[spot]44"));

    bg::Value typedFallback;
    typedFallback.setInts(210, 0, 0, 0, 0);
    const bg::Value back = store.get("spot", typedFallback);
    QCOMPARE(back.type(), bg::TypeId(210));
    QCOMPARE(back.integer(0), 44);
    // Without a typed fallback the text stays text.
    QCOMPARE(store.get("spot").toStdString(), std::string("[spot]44"));
}

void TestConfigStore::writeLeavesNoTemporaryFile()
{
    bg::ConfigStore store(path_.toStdString());
    for (int i = 0; i < 5; ++i)
        QVERIFY(store.set("n", bg::Value(i)));
    const QStringList files = QDir(QFileInfo(path_).path()).entryList(QDir::Files);
    QCOMPARE(files, QStringList{"bridge.json"});
    QCOMPARE(readJson(path_).value("n").toInt(), 4);
}

void TestConfigStore::failedWriteLeavesNoTrace()
{
    // A folder in the file's place, and another where it would be kept aside, make the
    // write fail, even for root.
    const QString blocked = dir_.filePath("blocked.json");
    QVERIFY(QDir().mkpath(blocked + "/inside"));
    QVERIFY(QDir().mkpath(blocked + ".bad/inside"));
    bg::Logger logger;
    std::FILE* log = std::tmpfile();
    logger.setSink(log);
    bg::ConfigStore store(blocked.toStdString(), &logger);
    QVERIFY(!store.set("key", bg::Value("v")));
    QVERIFY(QFileInfo(blocked + "/inside").isDir());
    QVERIFY(QFileInfo(blocked + ".bad/inside").isDir());
    QCOMPARE(QDir(dir_.path()).entryList(QDir::Files), QStringList());
    QVERIFY(contentOfLog(log).contains("cannot be kept aside"));
    std::fclose(log);
}

void TestConfigStore::badStoreIsReadAsEmptyAndKeptAside_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("reported");

    QTest::newRow("cut short") << "file" << QByteArray("{\"half\": ")
                               << QByteArray("is not valid JSON");
    QTest::newRow("array") << "file" << QByteArray("[1]") << QByteArray("is not a JSON object");
    QTest::newRow("nested 1001 deep")
        << "file" << QByteArray("{\"a\":") + QByteArray(1000, '[') + QByteArray(1000, ']') + "}"
        << QByteArray("is not valid JSON");
    QTest::newRow("nested 998 deep")
        << "file" << QByteArray("{\"a\":") + QByteArray(997, '[') + QByteArray(997, ']') + "}"
        << QByteArray("is not valid JSON");
    QByteArray large = "{\"a\":\"" + QByteArray(57 * 1024 * 1024, 'x') + "\"}";
    QTest::newRow("57 MB") << "file" << large << QByteArray("is too large");
#ifdef Q_OS_UNIX
    QTest::newRow("fifo") << "fifo" << QByteArray() << QByteArray("is not a regular file");
#endif
    QTest::newRow("folder") << "folder" << QByteArray() << QByteArray("is not a regular file");
}

void TestConfigStore::badStoreIsReadAsEmptyAndKeptAside()
{
    QFETCH(QString, kind);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, reported);

    QDir().mkpath(QFileInfo(path_).path());
    if (kind == "file")
        writeFile(path_, content);
#ifdef Q_OS_UNIX
    else if (kind == "fifo")
        QCOMPARE(::mkfifo(QFile::encodeName(path_).constData(), 0600), 0);
#endif
    else
        QVERIFY(QDir().mkpath(path_));
    bg::Logger logger;
    std::FILE* log = std::tmpfile();
    logger.setSink(log);
    bg::ConfigStore store(path_.toStdString(), &logger);
    QCOMPARE(store.get("a", bg::Value("d")).toStdString(), std::string("d"));
    QVERIFY(!store.has("a"));
    QCOMPARE(store.get_or_default("x", bg::Value("d")).toStdString(), std::string("d"));
    QVERIFY(!store.remove("a"));
    QVERIFY(QFileInfo::exists(path_));
    QVERIFY(!QFileInfo::exists(path_ + ".bad"));
    const QByteArray logged = contentOfLog(log);
    QVERIFY2(logged.contains(QFile::encodeName(path_) + ": " + reported), logged.constData());

    QVERIFY(store.set("x", bg::Value("y")));
    QCOMPARE(store.get("x", bg::Value("d")).toStdString(), std::string("y"));
    QVERIFY(QFileInfo(path_).isFile());
    QVERIFY(QFileInfo(path_).size() < 100);
    const QFileInfo bad(path_ + ".bad");
    if (kind == "file") {
        QFile kept(bad.filePath());
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), content);
    } else {
        QCOMPARE(bad.isDir(), kind == "folder");
    }
    QVERIFY(contentOfLog(log).contains("was kept aside as: " + QFile::encodeName(bad.filePath())));
    std::fclose(log);
}

void TestConfigStore::removeDeletesTheKey()
{
    bg::ConfigStore store(path_.toStdString());
    QVERIFY(store.set("a", bg::Value(1)));
    QVERIFY(store.has("a"));
    QVERIFY(store.remove("a"));
    QVERIFY(!store.has("a"));
    QVERIFY(!store.remove("a"));
    QVERIFY(!readJson(path_).contains("a"));
}

QTEST_APPLESS_MAIN(TestConfigStore)
#include "test-config-store.moc"
