// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "bench/canvas-fixture.h"
#include "bench/results-table.h"
#include "bench/viewport-recorder.h"

#include "canvas/draw-manager-ex.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <malloc.h>

namespace {

// Every stroke measured gets this many more points; its length is the one it had before them.
constexpr int kMoves = 100;
constexpr int kWholeCanvasSteps = 10;
constexpr int kClearItems = 10000;
constexpr int kMemoryStrokes = 1000;

ResultsTable s_table;
// --ink-layer=off measures the canvas painting every item itself.
bool s_inkLayer = true;

template <typename Step> double timeNs(Step step)
{
    const auto start = std::chrono::steady_clock::now();
    step();
    const auto end = std::chrono::steady_clock::now();
    return std::chrono::duration<double, std::nano>(end - start).count();
}

void record(benchmark::State& state, double ns, std::vector<double>& times)
{
    state.SetIterationTime(ns / 1e9);
    times.push_back(ns);
}

void moveBenchmark(benchmark::State& state, const QString& tool, int length, int items)
{
    CanvasFixture canvas(items, s_inkLayer);
    canvas.beginStroke(tool, length);
    std::vector<double> times;
    qint64 painted = 0;
    for (auto _ : state) {
        record(state, timeNs([&] { canvas.move(); }), times);
        painted += canvas.recorder()->lastPaintedArea();
    }
    canvas.release();
    state.counters["px_painted"] = double(painted) / times.size();
    s_table.add(tool, QString::number(length), QString::number(items), times);
}

void clearBenchmark(benchmark::State& state, bool measureUndo)
{
    CanvasFixture canvas(kClearItems, s_inkLayer);
    DrawManagerEx* drawing = canvas.manager();
    drawing->slot_clear();
    canvas.settle();
    std::vector<double> times;
    for (auto _ : state) {
        auto undo = [&] {
            drawing->slot_undo();
            canvas.settle();
        };
        auto redo = [&] {
            drawing->slot_redo();
            canvas.settle();
        };
        if (measureUndo) {
            record(state, timeNs(undo), times);
            redo();
        } else {
            undo();
            record(state, timeNs(redo), times);
        }
    }
    s_table.add(measureUndo ? "undo a clear" : "redo a clear", "-", QString::number(kClearItems),
                times);
}

// One step done to the whole canvas holding kClearItems strokes.
void wholeCanvasBenchmark(benchmark::State& state, const QString& what,
                          void (CanvasFixture::*step)())
{
    CanvasFixture canvas(kClearItems, s_inkLayer);
    std::vector<double> times;
    for (auto _ : state)
        record(state, timeNs([&] { (canvas.*step)(); }), times);
    s_table.add(what, "-", QString::number(kClearItems), times);
}

// Bytes the C library has handed out, in its heap and in blocks of their own (large images).
qint64 heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

// What one more finished stroke keeps: the heap grown from drawing kMemoryStrokes strokes to
// drawing twice as many, so that what is made once (caches) is left out, and without the ink
// layer's pixels: its picture is the window's size, and the patches it keeps to take the last
// strokes back are bounded, but which of them are kept when the count is read shifts by
// megabytes from one stroke to the next. Google Benchmark's time for these cases is not a
// figure of interest.
QString s_memoryTable;

void memoryBenchmark(benchmark::State& state, const QString& tool, int points)
{
    CanvasFixture canvas(0, s_inkLayer);
    double bytesPerStroke = 0;
    for (auto _ : state) {
        canvas.drawStrokes(tool, kMemoryStrokes, points);
        malloc_trim(0);
        const qint64 before = heapInUse() - canvas.inkLayerBytes();
        canvas.drawStrokes(tool, kMemoryStrokes, points);
        malloc_trim(0);
        bytesPerStroke = double(heapInUse() - canvas.inkLayerBytes() - before) / kMemoryStrokes;
    }
    state.counters["bytes_per_stroke"] = bytesPerStroke;
    s_memoryTable += QString("| %1 | %2 | %3 | %4 |\n")
                         .arg(tool)
                         .arg(points)
                         .arg(kMemoryStrokes)
                         .arg(bytesPerStroke, 0, 'f', 0);
}

void quietDebug(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    // The canvas writes a debug line per finished stroke; thousands of them would bury the
    // figures.
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(quietDebug);
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], "--ink-layer=off") == 0) {
            s_inkLayer = false;
            std::copy(argv + i + 1, argv + argc, argv + i);
            --argc;
            break;
        }
    }
    QApplication app(argc, argv);

    const QStringList tools = {"brush", "highlighter", "erase"};
    for (const QString& tool : tools) {
        for (int items : {0, 1000, 10000}) {
            for (int length : {100, 1000, 10000}) {
                const std::string name = QString("move/%1/length:%2/items:%3")
                                             .arg(tool)
                                             .arg(length)
                                             .arg(items)
                                             .toStdString();
                benchmark::RegisterBenchmark(name.c_str(), moveBenchmark, tool, length, items)
                    ->Iterations(kMoves)
                    ->UseManualTime()
                    ->Unit(benchmark::kMicrosecond);
            }
        }
    }
    benchmark::RegisterBenchmark("clear/undo/items:10000", clearBenchmark, true)
        ->Iterations(kWholeCanvasSteps)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("clear/redo/items:10000", clearBenchmark, false)
        ->Iterations(kWholeCanvasSteps)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("repaint/whole-canvas/items:10000", wholeCanvasBenchmark,
                                 QString("repaint whole canvas"), &CanvasFixture::repaintAll)
        ->Iterations(kWholeCanvasSteps)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);

    benchmark::RegisterBenchmark("hide-show/items:10000", wholeCanvasBenchmark,
                                 QString("hide and show again"), &CanvasFixture::hideAndShow)
        ->Iterations(kWholeCanvasSteps)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    for (const QString& tool : tools) {
        const std::string name =
            QString("memory/%1/points:50/strokes:%2").arg(tool).arg(kMemoryStrokes).toStdString();
        benchmark::RegisterBenchmark(name.c_str(), memoryBenchmark, tool, 50)
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    }

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    std::printf("\nTime per step, 1920x1080 ARGB canvas, QT_QPA_PLATFORM=%s, ink layer %s\n\n%s",
                qgetenv("QT_QPA_PLATFORM").constData(), s_inkLayer ? "on" : "off",
                qPrintable(s_table.format()));
    if (!s_memoryTable.isEmpty()) {
        std::printf("\nHeap kept per finished stroke (after %d strokes, the next %d)\n\n"
                    "| tool | points | strokes | bytes per stroke |\n|---|---:|---:|---:|\n%s",
                    kMemoryStrokes, kMemoryStrokes, qPrintable(s_memoryTable));
    }
    return 0;
}
