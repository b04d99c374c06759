#include "spokenmodel.h"

#include "editor_access.h"
#include "shown_text.h"

namespace {

// Never empty: Qt would take the stored text instead, such as a placeholder.
QString spokenText(const QModelIndex& index)
{
    const QString text = shownText(index.data(Qt::DisplayRole).toString());
    return text.trimmed().isEmpty() ? QStringLiteral("Empty") : text;
}

}  // namespace

QVariant SpokenModel::data(const QModelIndex& index, int role) const
{
    const bool speaks = index.isValid() && LoadingFile == 0;
    if (speaks && role == Qt::AccessibleTextRole)
        return spokenText(index);
    if (speaks && role == Qt::AccessibleDescriptionRole)
        return errorText(index);
    return TreeModel::data(index, role);
}
