#include "spec_texts.h"

#include <array>
#include <random>

#include "document_generator.h"

namespace {

constexpr std::array<const char*, 42> PIECES{"@SCAN_LIST\n",
                                             "@META_DATA\n",
                                             "@SCAN_LIST_AUX_USER\n",
                                             "@ECM_LIST\n",
                                             "@OUTPUT_PATH ",
                                             "@ENABLE\n",
                                             "@START_EVENT\n",
                                             "@META_HEADER_FILENAME ",
                                             "@GROUP\n",
                                             "@MAX_SCANS ",
                                             "@REG_NAME ",
                                             "@LOG_STATISTICS ",
                                             "@SCAN_INTERVAL\n",
                                             "@FILENAME ",
                                             "@DESCRIPTION\n",
                                             "@FOO ",
                                             "@RUNNING_AVERAGE\n",
                                             "@OMBRA_STEADY_STATE\n",
                                             "word ",
                                             "other_word ",
                                             "channel\n",
                                             "var .AV C1\n",
                                             "var .AV\n",
                                             "v C2\n",
                                             "5 ",
                                             "5 path\n",
                                             "'quoted' ",
                                             "\"two\nlines\"\n",
                                             "yes ",
                                             ".AV ",
                                             "1[sec] ",
                                             "1e+5 ",
                                             "LOG_DIGITAL_DESCP ",
                                             "#comment\n",
                                             "#@GROUP\n",
                                             "\n",
                                             "\n",
                                             "= ",
                                             "\xc3\x96 ",
                                             "'open ",
                                             "\t\t\t\t\t\t\t\t\t\t                         #far\n",
                                             "\r\n"};

int pick(std::mt19937* random, int count)
{
    return static_cast<int>((*random)() % static_cast<unsigned>(count));
}

QByteArray pieces(std::mt19937* random)
{
    QByteArray text = "@SCRIBON x\n";
    for (int length = 3 + pick(random, 12); length > 0; --length)
        text += PIECES[static_cast<size_t>(pick(random, PIECES.size()))];
    return text;
}

void mutate(QByteArray* text, std::mt19937* random)
{
    const int at = pick(random, text->size());
    const int length = 1 + pick(random, 8);
    switch (pick(random, 5)) {
        case 0:
            (*text)[at] = static_cast<char>(pick(random, 256));
            break;
        case 1:
            text->remove(at, length);
            break;
        case 2:
            text->insert(at, text->mid(pick(random, text->size()), length));
            break;
        case 3:
            text->insert(at, PIECES[static_cast<size_t>(pick(random, PIECES.size()))]);
            break;
        default:
            text->insert(at, "\n");
    }
}

}  // namespace

QByteArray specText(unsigned seed)
{
    std::mt19937 random(seed);
    if (seed % 3 == 0)
        return pieces(&random);
    QByteArray text = DocumentGenerator(seed).document();
    for (int count = seed % 3 == 1 ? 0 : 1 + pick(&random, 3); count > 0; --count)
        mutate(&text, &random);
    return text;
}
