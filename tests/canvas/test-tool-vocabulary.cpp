// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "canvas/tool-vocabulary.h"

#include <QtTest>

class TestToolVocabulary : public QObject
{
    Q_OBJECT

private slots:
    void settings_data();
    void settings();
    void kinds_data();
    void kinds();
};

void TestToolVocabulary::settings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("figure");
    QTest::addColumn<QString>("cursor");
    QTest::addColumn<int>("factor");
    QTest::addColumn<int>("alpha");
    QTest::addColumn<bool>("delayErase");

    QTest::newRow("brush") << "brush"
                           << "curve"
                           << "curve" << 1 << 255 << false;
    QTest::newRow("highlighter") << "highlighter"
                                 << "curve"
                                 << "highlighter" << 10 << 127 << false;
    QTest::newRow("delayerase") << "delayerase"
                                << "curve"
                                << "delayerase" << 1 << 255 << true;
    QTest::newRow("erase") << "erase"
                           << "erase"
                           << "erase" << 1 << 255 << false;
    QTest::newRow("drag") << "drag"
                          << "drag"
                          << "drag" << 1 << 255 << false;
    for (const char* name : {"line", "rect", "ellipse", "arrow", "text", "curve", "choose", "zz"})
        QTest::newRow(name) << name << name << "normal" << 1 << 255 << false;
}

void TestToolVocabulary::settings()
{
    QFETCH(QString, name);
    const ToolSettings tool = toolSettingsFor(name);
    QTEST(tool.figure, "figure");
    QTEST(tool.cursor, "cursor");
    QTEST(tool.widthFactor, "factor");
    QTEST(tool.alpha, "alpha");
    QTEST(tool.delayErase, "delayErase");
}

void TestToolVocabulary::kinds_data()
{
    QTest::addColumn<QString>("figure");
    QTest::addColumn<int>("kind");
    QTest::newRow("ellipse") << "ellipse" << 1;
    QTest::newRow("rect") << "rect" << 2;
    QTest::newRow("line") << "line" << 3;
    QTest::newRow("arrow") << "arrow" << 4;
    QTest::newRow("curve") << "curve" << 0;
    QTest::newRow("text") << "text" << 0;
    QTest::newRow("drag") << "drag" << 0;
}

void TestToolVocabulary::kinds()
{
    QFETCH(QString, figure);
    QTEST(commonItemKindFor(figure), "kind");
}

QTEST_GUILESS_MAIN(TestToolVocabulary)
#include "test-tool-vocabulary.moc"
