// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/bridge.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

class TestBridge : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void absentUntilInitialised();
    void servesTheBoardsStartUp();
    void secondInitKeepsTheFirstInterface();
    void configFollowsTheEnvironment();
};

void TestBridge::cleanup()
{
    bg::UninitBridge();
}

void TestBridge::absentUntilInitialised()
{
    QVERIFY(bg::GetBridge() == nullptr);
    char program[] = "pallo-board";
    char* argv[] = {program, nullptr};
    QVERIFY(bg::InitBridge(1, argv));
    QVERIFY(bg::GetBridge() != nullptr);
    bg::UninitBridge();
    QVERIFY(bg::GetBridge() == nullptr);
    bg::UninitBridge();
    QVERIFY(bg::GetBridge() == nullptr);
}

void TestBridge::servesTheBoardsStartUp()
{
    QTemporaryDir dir;
    qputenv("PALLO_BRIDGE_CONFIG", dir.filePath("bridge.json").toUtf8());
    char program[] = "/usr/bin/pallo-board";
    char nameFlag[] = "--name";
    char name[] = "pipe7";
    char* argv[] = {program, nameFlag, name, nullptr};
    QVERIFY(bg::InitBridge(3, argv));
    bg::BridgeInterface* bridge = bg::GetBridge();
    QCOMPARE(bridge->arguments().size(), std::size_t(3));
    QCOMPARE(bridge->arguments()[2], std::string("pipe7"));

    QVERIFY(bridge->config().set("appVersion", bg::Value("1.0.2")));
    QVERIFY(bridge->config().set("appUpdateTime", bg::Value("2023.04.26")));
    QVERIFY(bridge->options().add("name", 'n', "namepipe name", true, bg::Value("")));
    QVERIFY(bridge->options().add("language", 'l', "app language", false, bg::Value("")));
    QVERIFY(bridge->options().parse(3, argv));
    QCOMPARE(bridge->options().value("name", bg::Value("")).toStdString(), std::string("pipe7"));
    QCOMPARE(bridge->options().value("language", bg::Value("")).toStdString(), std::string());
    QVERIFY(bridge->options().help().find("pallo-board") != std::string::npos);
    QCOMPARE(bridge->clock().format("%Y", 1714571107).size(), std::size_t(4));

    QFile file(dir.filePath("bridge.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonObject json = QJsonDocument::fromJson(file.readAll()).object();
    QCOMPARE(json.value("appVersion").toString(), QString("1.0.2"));
    QCOMPARE(json.value("appUpdateTime").toString(), QString("2023.04.26"));
}

void TestBridge::secondInitKeepsTheFirstInterface()
{
    char first[] = "first";
    char second[] = "second";
    char* argv1[] = {first, nullptr};
    char* argv2[] = {second, nullptr};
    QVERIFY(bg::InitBridge(1, argv1));
    bg::BridgeInterface* bridge = bg::GetBridge();
    QVERIFY(bg::InitBridge(1, argv2));
    QCOMPARE(bg::GetBridge(), bridge);
    QCOMPARE(bridge->arguments()[0], std::string("first"));
}

void TestBridge::configFollowsTheEnvironment()
{
    QTemporaryDir dir;
    qunsetenv("PALLO_BRIDGE_CONFIG");
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    char program[] = "pallo-board";
    char* argv[] = {program, nullptr};
    QVERIFY(bg::InitBridge(1, argv));
    QCOMPARE(QString::fromStdString(bg::GetBridge()->config().path()),
             dir.filePath("Pallo/bridge.json"));
    const bg::Value path =
        bg::GetBridge()->config().get_or_default("screen.shot.path", bg::Value("/desk"));
    QCOMPARE(path.toStdString(), std::string("/desk"));
    QVERIFY(QFile::exists(dir.filePath("Pallo/bridge.json")));
}

QTEST_APPLESS_MAIN(TestBridge)
#include "test-bridge.moc"
