#include "asam_files.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <memory>

#include "get_asam3_lists.h"

namespace {

constexpr char GUARD = '!';

struct Rows {
    char lists[MAX_ASAM3_LISTS][ASAM3_LIST_SIZE]{};
    std::array<char, ASAM3_LIST_SIZE> guard{};
};

}  // namespace

QByteArray opening()
{
    return "@REG_NAME test_register\nline 2\nline 3\n$\n";
}

QByteArray section(const QByteArray& head)
{
    return head + "\n  some_label 4 4 [V]\n  another_label 8\n$\n";
}

QByteArray asamFile(const char* names)
{
    QByteArray text = opening();
    for (const QByteArray& name : QByteArray(names).split(' '))
        text += section(name + " ccp 0x100");
    return text;
}

AsamLists readLists(const QString& fileName)
{
    const auto rows = std::make_unique<Rows>();
    rows->guard.fill(GUARD);
    AsamLists lists;
    lists.result =
        get_asam3_lists(QFile::encodeName(fileName).constData(), rows->lists, &lists.count);
    for (int i = 0; i < std::min(lists.count, int{MAX_ASAM3_LISTS}); ++i)
        lists.entries.append(QString::fromLatin1(rows->lists[i]));
    lists.insideItsRows = std::all_of(rows->guard.begin(), rows->guard.end(),
                                      [](char byte) { return byte == GUARD; });
    return lists;
}
