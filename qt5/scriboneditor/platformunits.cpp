#include "platformunits.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr int16_t MAX_UNITS = 30;

}  // namespace

QByteArray unitsBytes(const UNITS_NAME& units)
{
    return {units, static_cast<int>(strnlen(units, sizeof(UNITS_NAME)))};
}

QString unitsString(const UNITS_NAME& units)
{
    return QString::fromLocal8Bit(unitsBytes(units));
}

void storeUnits(UNITS_NAME& units, const char* text)
{
    std::memset(units, 0, sizeof(UNITS_NAME));
    if (text != nullptr)
        std::memcpy(units, text, strnlen(text, sizeof(UNITS_NAME)));
}

QStringList unitsLike(const QByteArray& name)
{
    int16_t num_keywords = MAX_UNITS;
    std::array<UNITS_NAME, MAX_UNITS> dimension{};
    LV_get_units2(name.constData(), &num_keywords, dimension.data());
    QStringList names;
    for (int16_t i = 0; i < std::min(num_keywords, MAX_UNITS); ++i)
        names.append(unitsString(dimension[static_cast<size_t>(i)]));
    return names;
}

QByteArray unitsOfVariable(const QString& name)
{
    SHARED_MEMORY mem{};
    if (find_variable(name.toLocal8Bit().constData(), &mem) != 0)
        return {};
    return get_variable_units(mem);
}

int32_t codeOfUnits(const QByteArray& name)
{
    int32_t code = 0;
    if (!name.isEmpty())
        units_keyword_to_code(name.constData(), &code);
    return code;
}
