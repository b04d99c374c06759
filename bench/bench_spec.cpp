// scribon-spec over many files: reading, models and validation alone, and the whole check.

#include <QFile>
#include <QTemporaryDir>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "bench_document.h"
#include "check.h"
#include "editor_antlr3.h"
#include "spec_generator.h"
#include "treemodel.h"

namespace {

constexpr int FILE_COUNT = 500;

// How the files of a set are laid out.
enum Layout {
    AS_SAVED,  // as the editor's Save writes them
    BY_HAND    // keyword and value on one line, blanks for tabs, comments, other order of sections
};

std::string specOfNumber(int number)
{
    constexpr int SIZES = 5;
    constexpr int SMALLEST = 10;
    SpecShape shape;
    shape.scanRows = SMALLEST << (number % SIZES);
    shape.metaRows = shape.scanRows / 4;
    shape.auxRows = number % 3 == 0 ? shape.scanRows / 4 : 0;
    shape.ecmRows = number % 4;
    shape.keywords = number % 2 == 0 ? KeywordSet::Required : KeywordSet::Offered;
    shape.distinct = true;
    shape.maxName = 30;
    shape.withUnits = number % 3 != 0;
    shape.seed = static_cast<std::uint32_t>(number + 1);
    return generateSpec(shape);
}

bool isSection(const std::string& line)
{
    return line == "@SCAN_LIST" || line == "@META_DATA" || line == "@SCAN_LIST_AUX_USER" ||
           line == "@ECM_LIST";
}

// The same statements and entries as a person types them.
std::string asTypedByHand(const std::string& saved)
{
    std::string typed;
    bool joinNext = false;
    size_t start = 0;
    while (start < saved.size()) {
        const size_t end = std::min(saved.find('\n', start), saved.size());
        std::string line = saved.substr(start, end - start);
        start = end + 1;
        if (line.empty())
            continue;
        for (size_t tabs = line.find("\t\t"); tabs != std::string::npos; tabs = line.find("\t\t"))
            line.replace(tabs, 2, " ");
        joinNext = line.front() == '@' && !isSection(line);
        typed += line + (joinNext ? ' ' : '\n');
    }
    return typed;
}

const std::vector<std::string>& filesOf(Layout layout)
{
    static QTemporaryDir directory;
    static std::array<std::vector<std::string>, 2> sets;
    std::vector<std::string>& names = sets[layout];
    for (int i = static_cast<int>(names.size()); i < FILE_COUNT; ++i) {
        names.push_back(
            directory.filePath(QStringLiteral("scrib_%1_%2").arg(layout).arg(i)).toStdString());
        const std::string text = specOfNumber(i);
        std::ofstream(names.back()) << (layout == AS_SAVED ? text : asTypedByHand(text));
    }
    return names;
}

void readAndValidate(benchmark::State& state)
{
    const std::vector<std::string>& files = filesOf(static_cast<Layout>(state.range(0)));
    for (auto _ : state) {
        for (const std::string& name : files) {
            resetParseState();
            preload_file(name.c_str());
            read_file(name.c_str());
            for (const auto& model : makeModels()) {
                model->setDirty();
                model->validate_model();
            }
        }
    }
}
BENCHMARK(readAndValidate)->Arg(AS_SAVED)->Arg(BY_HAND)->MinTime(2)->Unit(benchmark::kMillisecond);

void checkFiles(benchmark::State& state)
{
    const std::vector<std::string>& files = filesOf(static_cast<Layout>(state.range(0)));
    for (auto _ : state) {
        for (const std::string& name : files) {
            const SpecFile file = SpecFile::read(QString::fromStdString(name));
            benchmark::DoNotOptimize(checkFile(file, CheckOptions()));
        }
    }
}
BENCHMARK(checkFiles)->Arg(AS_SAVED)->Arg(BY_HAND)->MinTime(2)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
