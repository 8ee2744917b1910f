// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/font-fallback.h"
#include "tests/test-output.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QRawFont>
#include <QtTest>

namespace {

const QString yaHei = QStringLiteral("微软雅黑");

} // namespace

class TestFontFallback : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void substitutesAreInstalled();
    void yaHeiResolvesToACjkFamily();
    void resolvedFontHasTheGlyphs_data();
    void resolvedFontHasTheGlyphs();
    void settingIsDrawnWithInk();
};

void TestFontFallback::initTestCase()
{
    QVERIFY2(QFontDatabase().families().contains(QStringLiteral("Noto Sans CJK SC")),
             "fonts-noto-cjk is not installed");
    installFontFallbacks();
}

void TestFontFallback::substitutesAreInstalled()
{
    const QStringList substitutes = QFont::substitutes(yaHei);
    // Qt keeps substitutes in lower case.
    QCOMPARE(substitutes.value(0), QStringLiteral("noto sans cjk sc"));
    for (const QString& family : cjkFallbackFamilies()) {
        QVERIFY2(substitutes.contains(family, Qt::CaseInsensitive), qPrintable(family));
    }
}

void TestFontFallback::yaHeiResolvesToACjkFamily()
{
    QFont font(yaHei);
    font.setPixelSize(16);
    QCOMPARE(QFontInfo(font).family(), QStringLiteral("Noto Sans CJK SC"));
}

void TestFontFallback::resolvedFontHasTheGlyphs_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("setting") << "设置";
    QTest::newRow("timer") << "计时器";
    QTest::newRow("punctuation") << "未知按键,请重新按键设置!";
}

void TestFontFallback::resolvedFontHasTheGlyphs()
{
    QFETCH(QString, text);
    QFont font(yaHei);
    font.setPixelSize(16);
    const QRawFont raw = QRawFont::fromFont(font);
    QVERIFY(raw.isValid());
    for (const QChar ch : text) {
        QVERIFY2(raw.supportsCharacter(ch), qPrintable(QString(ch)));
    }
    QFontMetrics metrics(font);
    for (const QChar ch : text) {
        QVERIFY2(metrics.inFont(ch), qPrintable(QString(ch)));
    }
}

void TestFontFallback::settingIsDrawnWithInk()
{
    const auto draw = [](const QString& family) {
        QImage image(64, 32, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QFont font(family);
        font.setPixelSize(20);
        painter.setFont(font);
        painter.setPen(Qt::black);
        painter.drawText(image.rect(), Qt::AlignCenter, QStringLiteral("设置"));
        return image;
    };
    const QImage image = draw(yaHei);
    keepPicture(image, QStringLiteral("font-fallback-setting"));
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128) {
                ++dark;
            }
        }
    }
    QVERIFY2(dark > 40, qPrintable(QString::number(dark)));
    QCOMPARE(image, draw(QStringLiteral("Noto Sans CJK SC")));
}

QTEST_MAIN(TestFontFallback)
#include "test-font-fallback.moc"
