#include "bench_document.h"

#include <malloc.h>

#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <fstream>
#include <map>

#include "treemodel.h"

namespace {

void writeSpecFile(const std::string& fileName, int rows)
{
    std::ofstream file(fileName);
    file << "@SCRIBON\nbench\n\n@SCAN_INTERVAL\n100[msec]\n\n@SCAN_LIST\n";
    for (int i = 0; i < rows; ++i)
        file << "eng_variable_" << i << (i % 5 == 0 ? " .AV" : "") << " channel_" << i << '\n';
}

}  // namespace

const std::string& specFileOfRows(int rows)
{
    static QTemporaryDir directory;
    static std::map<int, std::string> files;
    std::string& name = files[rows];
    if (name.empty()) {
        name = directory.filePath(QString::number(rows)).toStdString();
        writeSpecFile(name, rows);
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
