#include "checked_texts.h"

#include <QDir>
#include <random>

#include "check.h"
#include "document_generator.h"
#include "places.h"
#include "report.h"
#include "spec_program.h"

namespace {

constexpr int DOCUMENTS = 12;
constexpr int GARBAGE_SIZE = 300;

QByteArray mutated(QByteArray text, std::mt19937* random)
{
    constexpr char BYTES[] = "@#'\"\n\t .5x\xe4\xff\0[";
    for (int i = 0; i < 6; ++i) {
        const int at = static_cast<int>((*random)() % static_cast<unsigned>(text.size()));
        text[at] = BYTES[(*random)() % (sizeof BYTES - 1)];
    }
    return text;
}

QByteArray garbage(std::mt19937* random)
{
    QByteArray bytes(GARBAGE_SIZE, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>((*random)() & 0xffU);
    return bytes;
}

}  // namespace

QByteArray reportOf(const char* form, const QVector<NamedText>& texts)
{
    const auto report = reportOfName(QString::fromLatin1(form), TextTarget::File);
    Totals totals;
    QByteArrayList parts;
    for (const NamedText& text : texts) {
        const SpecFile file = SpecFile::fromBytes(text.bytes, text.name);
        FileReport findings = checkFile(file, CheckOptions());
        findings.number = static_cast<int>(totals.files.size()) + 1;
        totals.add(countsOf(findings));
        parts.append(report->file(file, findings));
    }
    parts.removeAll({});
    return report->head(totals) + parts.join(report->separator()) + report->foot(totals);
}

QVector<NamedText> manyTexts()
{
    QVector<NamedText> texts;
    const QDir examples(qEnvironmentVariable("SCRIBON_EXAMPLES"));
    for (const QString& name : examples.entryList({"scrib_*"_s}, QDir::Files))
        texts.append({name, readFile(examples.filePath(name))});
    std::mt19937 random(1);
    DocumentGenerator generator(1);
    for (int i = 0; i < DOCUMENTS; ++i) {
        const QByteArray document = "@SCRIBON x\n" + generator.document();
        texts.append({"document %1"_s.arg(i), document});
        texts.append({"mutation %1"_s.arg(i), mutated(document, &random)});
        texts.append({"garbage %1"_s.arg(i), garbage(&random)});
    }
    return texts;
}
