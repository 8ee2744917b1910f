// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "app/board-app.h"
#include "app/font-fallback.h"
#include "app/pallo-translator.h"
#ifdef Q_OS_UNIX
#include "app/pointer-press-fix.h"
#include "common/over-canvas-stacking.h"
#endif
#include "bridge/bridge.h"
#include "common/scale-factor.h"
#include "logging/startup-steps.h"
#include "pallo-version.h"

#include <QGuiApplication>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

int main(int argc, char* argv[])
{
    markStartupStep("main");
    bg::InitBridge(argc, argv);
    std::atexit(bg::UninitBridge);
    bg::BridgeInterface* bridge = bg::GetBridge();

    bridge->config().set("appVersion", bg::Value(PALLO_VERSION));
    bridge->config().set("appUpdateTime", bg::Value(PALLO_UPDATE_TIME));

    bg::Options& options = bridge->options();
    options.add("name", 'n', "namepipe name", true, bg::Value(""));
    options.add("language", 'l', "app language", false, bg::Value(""));
    options.addFlag("help", "show this help and end");
    options.addFlag("version", "show the version and end");
    // The options service has already told the user what was wrong.
    if (!options.parse(argc, argv))
        return 0;
    if (options.given("help")) {
        std::fputs(options.help().c_str(), stdout);
        return 0;
    }
    if (options.given("version")) {
        std::puts("pallo-board " PALLO_VERSION);
        return 0;
    }

    leaveScalingToTheBoard();
    // Nothing on the board draws with OpenGL. Windows that could take it make the X11
    // platform look for an OpenGL visual for each of them, which loads the OpenGL driver
    // (with a software one, a compiler of some 40 MB) before the first window is mapped.
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
    BoardApp app(argc, argv);
    // A stroke is the path the hand took: merging the motions that queue up while the board
    // is busy would cut its corners. The X11 platform turns the merging on as it starts.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    markStartupStep("application made");
    int result = 0;
    if (app.isSecondary()) {
        app.sendMessage("show", 100);
    } else {
        // The board lives until its host goes away, whatever happens to its windows.
        QGuiApplication::setQuitOnLastWindowClosed(false);
#ifdef Q_OS_UNIX
        PointerPressFix::install();
        OverCanvasStacking::install();
#endif
        installFontFallbacks();
        const std::string language = options.value("language", bg::Value("")).toStdString();
        auto translator = std::make_unique<PalloTranslator>(QString::fromLatin1(language.c_str()));
        QCoreApplication::installTranslator(translator.get());
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        // Qt 6 has no codec to choose: its local 8-bit text is UTF-8 on Linux already.
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("utf8"));
#endif
        markStartupStep("event loop");
        result = QApplication::exec();
        translator.reset();
    }
    return result;
}
