#include "cellsearch.h"

#include <QTreeView>
#include <algorithm>

#include "shown_text.h"
#include "treemodel.h"

namespace {

QChar folded(QChar letter)
{
    if (letter.unicode() >= 0x80)
        return letter.toCaseFolded();
    const bool isCapital = letter >= QLatin1Char('A') && letter <= QLatin1Char('Z');
    return isCapital ? QChar(letter.unicode() | 0x20) : letter;
}

// A text to look for. Not a QStringMatcher, which looks each letter up in Unicode tables: nearly
// all letters of a spec file are ASCII.
class SoughtText {
public:
    explicit SoughtText(const QString& text) : m_text(text)
    {
        std::transform(m_text.begin(), m_text.end(), m_text.begin(), folded);
    }

    bool isIn(const QString& text) const
    {
        const auto isSame = [](QChar letter, QChar sought) { return folded(letter) == sought; };
        return std::search(text.begin(), text.end(), m_text.begin(), m_text.end(), isSame) !=
               text.end();
    }

private:
    QString m_text;
};

// All that is shown of a text stands in it, unless it is a keyword.
bool isFound(const SoughtText& sought, const QString& text)
{
    if (sought.isIn(text))
        return !showsNothing(text);
    return text.startsWith(QLatin1Char('@')) && sought.isIn(shownText(text));
}

}  // namespace

// The view looks hidden rows up in a hash of persistent indexes, so it is asked last.
std::vector<CellPlace> cellsWith(const QString& text, const QTreeView& view)
{
    std::vector<CellPlace> found;
    const auto* const model = qobject_cast<const TreeModel*>(view.model());
    if (text.isEmpty() || model == nullptr)
        return found;
    const SoughtText sought(text);
    model->visitTexts([&](int row, int column, const QString& cell) {
        if (isFound(sought, cell) && !view.isColumnHidden(column) &&
            !view.isRowHidden(row, QModelIndex()))
            found.push_back({row, column});
    });
    return found;
}
