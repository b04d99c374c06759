#include "bench_platform.h"

#include <marvane_headers.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "desk_process.h"

namespace {

constexpr int ALIAS_EVERY = 2;
constexpr int CHANNEL_KEYWORDS = 200;

// A prime that does not divide any number of variables here, so that each index occurs once.
constexpr qint64 SHUFFLE = 7919;

QByteArray record(int variables, int i)
{
    const auto number = QByteArray::number(static_cast<int>(i * SHUFFLE % variables));
    QByteArray text = "{\"label\":\"cell_variable_" + number + '"';
    if (i % ALIAS_EVERY == 0)
        text += ",\"alias\":\"short_" + number + '"';
    return text + '}';
}

QByteArray channelKeywords()
{
    QByteArray records;
    for (int i = 0; i < CHANNEL_KEYWORDS; ++i)
        records += (i == 0 ? "" : ",") + QByteArray("{\"name\":\"KEY_") + QByteArray::number(i) +
                   "\",\"kind\":\"channel\"}";
    return records;
}

QByteArray catalogueOf(int variables)
{
    QByteArray records;
    for (int i = 0; i < variables; ++i)
        records += (i == 0 ? "" : ",") + record(variables, i);
    return "{\"areas\":{\"GU_REAL_MEM\":{\"real\":[" + records + "]}},\"keywords\":[" +
           channelKeywords() + "]}";
}

std::unique_ptr<DeskProcess> desk;
int running = -1;

}  // namespace

void runPlatformOf(int variables)
{
    if (running == variables)
        return;
    desk = std::make_unique<DeskProcess>();
    if (!desk->startWith(catalogueOf(variables)) || marvane_init_fn(1) != 0) {
        std::fputs("The desk platform did not start.\n", stderr);
        std::exit(1);
    }
    running = variables;
}

void stopPlatform()
{
    desk.reset();
    running = -1;
}
