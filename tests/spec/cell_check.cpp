#include "cell_check.h"

#include "spec_program.h"

namespace {

QString textOf(const Finding& finding)
{
    const QString text = QStringLiteral("%1:%2 %3: %4")
                             .arg(finding.place.line)
                             .arg(finding.place.column)
                             .arg(QLatin1String(factsOf(finding.rule).name), finding.message);
    return finding.hint.isEmpty() ? text : text + QLatin1Char(' ') + finding.hint;
}

bool isAny(const Finding&)
{
    return true;
}

bool isAboutCell(const Finding& finding)
{
    return finding.rule >= Rule::UnknownVariable;
}

QStringList textsOf(const SpecFile& file, const LiveCell* cell, const EcmOffers* offers,
                    bool (*wanted)(const Finding&))
{
    CheckOptions options;
    options.cell = cell;
    options.offers = offers;
    QStringList texts;
    for (const Finding& finding : checkFile(file, options).findings) {
        if (wanted(finding))
            texts.append(textOf(finding));
    }
    return texts;
}

}  // namespace

QString demoCatalogue()
{
    return qEnvironmentVariable("SCRIBON_EXAMPLES") + QStringLiteral("/catalogue.json");
}

QByteArray cellSpec(const QByteArray& statements)
{
    return "@SCRIBON cell_check\n@DESCRIPTION 'A check'\n@GROUP test_group\n@MODE test_mode_name\n"
           "@PROGRAM test_program\n@TEST_ID test_id\n@TEST_TYPE test_type\n@SCAN_INTERVAL "
           "1[sec]\n" +
           statements + '\n';
}

QStringList allFindings(const SpecFile& file, const LiveCell* cell, const EcmOffers* offers)
{
    return textsOf(file, cell, offers, isAny);
}

QStringList cellFindings(const SpecFile& file, const LiveCell* cell, const EcmOffers* offers)
{
    return textsOf(file, cell, offers, isAboutCell);
}

QStringList cellFindings(const QByteArray& spec, const LiveCell* cell, const EcmOffers* offers)
{
    return cellFindings(loadedSpec(spec), cell, offers);
}
