#include "support/BenchRatios.h"

#include <QApplication>
#include <benchmark/benchmark.h>

// Map objects lay out text and live in a QGraphicsScene: both want a
// QApplication, here on the offscreen platform.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    ZoBench::RunWithRatios();
    benchmark::Shutdown();
    return 0;
}
