// The catalogue of the platform in the tests of the dialog.
#pragma once

#include <QByteArray>

inline QByteArray testCatalogue()
{
    return R"({
        "units": {
            "temperature": ["DEGC", "DEGF", "K"],
            "speed": ["RPM", "HZ", "RAD/S"],
            "count": ["COUNTS"]
        },
        "areas": {
            "AI_REAL_MEM": { "real": [
                { "label": "oil_temp", "units": "DEGC", "alias": "T_oil" },
                { "label": "air_temp", "units": "DEGF" },
                { "label": "Zero_signal" },
                { "label": "engine_speed", "units": "RPM" }
            ] },
            "CI_REAL_MEM": { "real": [{ "label": "fuel_pulses" }] },
            "CI_INTG_MEM": { "integer": [{ "label": "pulse_count", "units": "COUNTS" }] },
            "DI_LOGI_MEM": { "logical": [{ "label": "door_open" }, { "label": "bay_clear" }] },
            "ENGINE_CONST_MEM": { "string": [{ "label": "engine_name" }] },
            "GU_REAL_MEM": { "real": [{ "label": "user_real" }] },
            "GU_INTEGER_MEM": { "integer": [{ "label": "cycle_count" }, { "label": "big_count" }] },
            "GU_STRING_MEM": { "string": [{ "label": "user_text" }] },
            "GU_STAT_MEM": { "statistic": [{ "label": "speed_stat.", "units": "RPM" }] },
            "PROPERTIES_MEM": {
                "composition": [{ "label": "exhaust." }],
                "property": [{ "label": "intake." }],
                "emission": [{ "label": "tailpipe." }]
            }
        }
    })";
}
