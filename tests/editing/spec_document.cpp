#include "spec_document.h"

#include "golden_keywords.h"

namespace {

QByteArray statement(const GoldenKeyword& keyword)
{
    const QByteArray value = keyword.values.saved;
    return QByteArray("\n") + keyword.spelling + "\n" + (value.isEmpty() ? value : value + "\n");
}

bool isFirst(const GoldenKeyword& keyword)
{
    return keyword.editor == SCRIBON_EDITOR;
}

// A file begins with the statement of @SCRIBON.
QByteArray statements()
{
    QByteArray first;
    QByteArray others;
    for (const GoldenKeyword& keyword : GOLDEN_KEYWORDS) {
        if (isStatement(keyword))
            (isFirst(keyword) ? first : others) += statement(keyword);
    }
    return first + others;
}

}  // namespace

QByteArray fullSpec()
{
    return "# Everything that can be edited\n" + statements() +
           "\n@SCAN_LIST\n"
           "# Speed and torque\n"
           "eng_speed\t\tN_ENG\n"
           "eng_speed\t\t.AV\t\tN_ENG_AVG\n"
           "speed_setpoint[HZ]\t\tN_DYNO\n"
           "eng_running\t\tLOG_DIGITAL_DESCP\t\tRUNNING\n"
           "\n@META_DATA\n"
           "# Who and what\n"
           "TEST_TITLE\t\t'Full load'\n"
           "BORE\t\tbore[IN]\n"
           "\n@SCAN_LIST_AUX_USER\n"
           "# The other names\n"
           "eng_speed\t\tcrank_speed\n"
           "torque_setpoint\n"
           "\n@ECM_LIST\n"
           "# The engine itself\n"
           "1\t\t/specs/asam3_specs.engine:ECM0:0\n";
}

QByteArray engineSpecs()
{
    return "@REG_NAME eng_ecm\nEngine\nRev 1\n$\n"
           "ECM0 CCP 0x0100\n$\nECM0 CCP 0x0101\n$\nECM1 CCP 0x0200\n$\n";
}
