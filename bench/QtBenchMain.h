#pragma once
// The main of a benchmark that draws widgets: a QApplication on the offscreen platform
// around Google Benchmark's run. Include it once, after the BENCHMARK lines.
#include <benchmark/benchmark.h>

#include <QApplication>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
