#include "bench_document.h"

#include <malloc.h>

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <fstream>
#include <map>
#include <utility>

#include "spec_generator.h"
#include "treemodel.h"

const std::string& specFileOfRows(int scanRows, int metaRows)
{
    static QTemporaryDir directory;
    static std::map<std::pair<int, int>, std::string> files;
    std::string& name = files[{scanRows, metaRows}];
    if (name.empty()) {
        SpecShape shape;
        shape.scanRows = scanRows;
        shape.metaRows = metaRows;
        shape.keywords = KeywordSet::All;
        shape.distinct = true;
        shape.withUnits = true;
        name =
            directory.filePath(QStringLiteral("%1_%2").arg(scanRows).arg(metaRows)).toStdString();
        std::ofstream(name) << generateSpec(shape);
    }
    return name;
}

std::vector<std::unique_ptr<TreeModel>> makeModels()
{
    std::vector<std::unique_ptr<TreeModel>> models;
    for (int tab = 0; tab < TAB_COUNT; ++tab) {
        QStringList headers;
        while (headers.size() < NumberOfColumns[static_cast<size_t>(tab)])
            headers.append(QStringLiteral("header"));
        models.push_back(std::make_unique<TreeModel>(headers, getTree(),
                                                     static_cast<ANTLR3_UINT32>(EDIT_TAB1 + tab)));
    }
    return models;
}

int runBenchmarks(int argc, char** argv)
{
    constexpr int ANY_SIZE = 1 << 30;
    mallopt(M_MMAP_THRESHOLD, ANY_SIZE);
    mallopt(M_TRIM_THRESHOLD, ANY_SIZE);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

void atAllSizes(benchmark::internal::Benchmark* measured)
{
    constexpr double SECONDS = 1.5;
    measured->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000)->MinTime(SECONDS);
}

void countRows(benchmark::State* state)
{
    state->SetItemsProcessed(state->iterations() * state->range(0));
}
