// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bridge/options.h"
#include "tests/bridge/stderr-capture.h"

#include <QtTest>

#include <vector>

namespace {

// The board's two options, declared as it declares them.
void declareBoardOptions(bg::Options& options)
{
    QVERIFY(options.add("name", 'n', "namepipe name", true, bg::Value("")));
    QVERIFY(options.add("language", 'l', "app language", false, bg::Value("")));
}

bool parse(bg::Options& options, const QStringList& arguments)
{
    std::vector<QByteArray> storage{"pallo-board"};
    for (const QString& a : arguments)
        storage.push_back(a.toUtf8());
    std::vector<const char*> argv;
    for (const QByteArray& a : storage)
        argv.push_back(a.constData());
    return options.parse(static_cast<int>(argv.size()), argv.data());
}

} // namespace

class TestOptions : public QObject
{
    Q_OBJECT

private slots:
    void commandLines_data();
    void commandLines();
    void missingRequiredOptionFails();
    void optionWithoutTextFails();
    void fallbacks();
    void declarationsAreChecked();
    void helpListsTheOptions();
    void flagsAnswerWithoutTheRequiredOptions_data();
    void flagsAnswerWithoutTheRequiredOptions();
    void flagsTakeNoText();
};

void TestOptions::commandLines_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("language");

    QTest::newRow("long") << QStringList{"--name", "pipe1", "--language", "english"} << "pipe1"
                          << "english";
    QTest::newRow("short") << QStringList{"-n", "pipe2", "-l", "chinese"} << "pipe2"
                           << "chinese";
    QTest::newRow("equals") << QStringList{"--name=pipe3"} << "pipe3"
                            << "";
    QTest::newRow("foreign options left alone")
        << QStringList{"--name", "p", "--style", "fusion", "extra"} << "p"
        << "";
}

void TestOptions::commandLines()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, name);
    QFETCH(QString, language);

    bg::Options options;
    declareBoardOptions(options);
    QVERIFY(parse(options, arguments));
    QVERIFY(options.parsed());
    QCOMPARE(QString::fromStdString(options.value("name", bg::Value("")).toStdString()), name);
    QCOMPARE(QString::fromStdString(options.value("language", bg::Value("")).toStdString()),
             language);
}

void TestOptions::missingRequiredOptionFails()
{
    bg::Options options;
    declareBoardOptions(options);
    StderrCapture capture;
    QVERIFY(!parse(options, {"--language", "english"}));
    const QByteArray text = capture.finish();
    QVERIFY2(text.contains("option '--name' is required"), text.constData());
    QVERIFY(text.contains("namepipe name"));
    QVERIFY(!options.parsed());
}

void TestOptions::optionWithoutTextFails()
{
    bg::Options options;
    declareBoardOptions(options);
    StderrCapture capture;
    QVERIFY(!parse(options, {"--name"}));
    QVERIFY(!capture.finish().isEmpty());
}

void TestOptions::fallbacks()
{
    bg::Options options;
    QVERIFY(options.add("size", 's', "a size", false, bg::Value(12)));
    QVERIFY(options.add("mode", 0, "a mode", false));
    QVERIFY(parse(options, {}));
    QVERIFY(!options.given("size"));
    QCOMPARE(options.value("size", bg::Value(1)).toInt(), 12);
    QCOMPARE(options.value("mode", bg::Value("plain")).toStdString(), std::string("plain"));
    QCOMPARE(options.value("undeclared", bg::Value("u")).toStdString(), std::string("u"));

    bg::Options given;
    QVERIFY(given.add("size", 's', "a size", false, bg::Value(12)));
    QVERIFY(parse(given, {"-s", "30"}));
    QVERIFY(given.given("size"));
    QCOMPARE(given.value("size").toInt(), 30);
}

void TestOptions::declarationsAreChecked()
{
    bg::Options options;
    QVERIFY(options.add("name", 'n', "", true));
    QVERIFY(!options.add("name", 'x', "", false));
    QVERIFY(!options.add("other", 'n', "", false));
    QVERIFY(!options.add("", 'e', "", false));
    QVERIFY(!options.add("bad name", 'b', "", false));
    QVERIFY(parse(options, {"-n", "p"}));
    QVERIFY(!options.add("late", 0, "", false));
}

void TestOptions::helpListsTheOptions()
{
    bg::Options options("pallo-board");
    declareBoardOptions(options);
    const QString help = QString::fromStdString(options.help());
    QVERIFY(help.contains("--name"));
    QVERIFY(help.contains("-n"));
    QVERIFY(help.contains("namepipe name (required)"));
    QVERIFY(help.contains("app language"));
}

void TestOptions::flagsAnswerWithoutTheRequiredOptions_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("help");
    QTest::addColumn<bool>("version");
    QTest::addColumn<QString>("name");

    QTest::newRow("help alone") << QStringList{"--help"} << true << false << "";
    QTest::newRow("version alone") << QStringList{"--version"} << false << true << "";
    QTest::newRow("version after a language")
        << QStringList{"-l", "english", "--version"} << false << true << "";
    QTest::newRow("help with a name")
        << QStringList{"--name", "p", "--help"} << true << false << "p";
    QTest::newRow("both") << QStringList{"--version", "--help"} << true << true << "";
}

void TestOptions::flagsAnswerWithoutTheRequiredOptions()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, help);
    QFETCH(bool, version);
    QFETCH(QString, name);

    bg::Options options;
    declareBoardOptions(options);
    QVERIFY(options.addFlag("help", "show this help and end"));
    QVERIFY(options.addFlag("version", "show the version and end"));
    StderrCapture capture;
    QVERIFY(parse(options, arguments));
    QCOMPARE(capture.finish(), QByteArray());
    QCOMPARE(options.given("help"), help);
    QCOMPARE(options.given("version"), version);
    QCOMPARE(QString::fromStdString(options.value("name", bg::Value("")).toStdString()), name);

    const QString text = QString::fromStdString(options.help());
    QVERIFY(text.contains("--version"));
    QVERIFY(text.contains("show the version and end"));
    QVERIFY(!text.contains("show this help and end (required)"));
}

void TestOptions::flagsTakeNoText()
{
    bg::Options options;
    declareBoardOptions(options);
    QVERIFY(options.addFlag("version", "show the version"));
    QVERIFY(!options.addFlag("version", "again"));
    QVERIFY(!options.addFlag("name", "a flag under an option's name"));
    // The word after a flag is not taken as its text.
    QVERIFY(parse(options, {"--version", "--name", "p"}));
    QVERIFY(options.given("version"));
    QCOMPARE(options.value("name").toStdString(), std::string("p"));
    // Without a flag the required option is still required.
    bg::Options plain;
    declareBoardOptions(plain);
    StderrCapture capture;
    QVERIFY(!parse(plain, {"--language", "english"}));
    QVERIFY(capture.finish().contains("option '--name' is required"));
}

QTEST_APPLESS_MAIN(TestOptions)
#include "test-options.moc"
