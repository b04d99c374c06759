// From a spec file to five models and back, step by step.

#include <array>
#include <cstdio>
#include <cstring>

#include "bench_document.h"
#include "editor_antlr3.h"
#include "scribonspecsLexer.h"
#include "treemodel.h"

namespace {

constexpr ANTLR3_UINT32 TOKENS_HINT = 1025;

int rowsOf(const benchmark::State& state)
{
    return static_cast<int>(state.range(0));
}

void lexFile(benchmark::State& state)
{
    std::string fileName = specFileOfRows(rowsOf(state));
    for (auto _ : state) {
        const auto input = antlr3FileStreamNew(reinterpret_cast<pANTLR3_UINT8>(fileName.data()), 0);
        const auto lexer = scribonspecsLexerNew(input);
        const auto tokens =
            antlr3CommonTokenStreamSourceNew(TOKENS_HINT, lexer->pLexer->rec->state->tokSource);
        benchmark::DoNotOptimize(tokens->getTokens(tokens));
        tokens->free(tokens);
        lexer->free(lexer);
        input->close(input);
    }
    countRows(&state);
}
BENCHMARK(lexFile)->Apply(atAllSizes);

void readFile(benchmark::State& state)
{
    const std::string& fileName = specFileOfRows(rowsOf(state));
    for (auto _ : state) {
        benchmark::DoNotOptimize(read_file(fileName.c_str()));
        free_resources();
    }
    countRows(&state);
}
BENCHMARK(readFile)->Apply(atAllSizes);

// The tree is read anew for each build: its texts are made when they are first asked for.
void buildFiveModels(benchmark::State& state)
{
    const std::string& fileName = specFileOfRows(rowsOf(state));
    for (auto _ : state) {
        state.PauseTiming();
        read_file(fileName.c_str());
        state.ResumeTiming();
        auto models = makeModels();
        benchmark::DoNotOptimize(models.data());
        state.PauseTiming();
        models.clear();
        free_resources();
        state.ResumeTiming();
    }
    countRows(&state);
}
BENCHMARK(buildFiveModels)->Apply(atAllSizes);

void saveFile(benchmark::State& state)
{
    read_file(specFileOfRows(rowsOf(state)).c_str());
    const auto models = makeModels();
    free_resources();
    std::string saved = specFileOfRows(rowsOf(state)) + ".saved";
    for (auto _ : state) {
        std::remove(saved.c_str());
        for (const auto& model : models)
            model->dump_to_file(saved.data());
    }
    countRows(&state);
}
BENCHMARK(saveFile)->Apply(atAllSizes);

// As many texts as the document has rows, with a lexer for each.
void classifyTexts(benchmark::State& state)
{
    constexpr std::array<const char*, 5> TEXTS{"eng_speed_filtered", ".AV", "# a comment",
                                               "@SCAN_INTERVAL", "'a quoted text'"};
    for (auto _ : state) {
        for (int row = 0; row < rowsOf(state); ++row) {
            const char* const text = TEXTS[static_cast<size_t>(row) % TEXTS.size()];
            int tokenType = 0;
            benchmark::DoNotOptimize(
                appGrammerTypeToEditorType(text, static_cast<int>(std::strlen(text)), &tokenType));
        }
    }
    countRows(&state);
}
BENCHMARK(classifyTexts)->Apply(atAllSizes);

}  // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
