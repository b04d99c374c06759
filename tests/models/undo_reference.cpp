#include "undo_reference.h"

ReferenceTab::ReferenceTab(const QVector<QStringList>& rows)
{
    for (const QStringList& texts : rows)
        m_rows.append({newId(), texts});
}

QVector<QStringList> ReferenceTab::texts() const
{
    QVector<QStringList> texts;
    for (const Row& row : m_rows)
        texts.append(row.texts);
    return texts;
}

void ReferenceTab::setText(int id, int column, const QString& text)
{
    for (Row& row : m_rows) {
        if (row.id == id)
            row.texts[column] = text;
    }
}

bool ReferenceStack::edit(ReferenceTab* tab, int number, int column, const QString& text)
{
    const ReferenceTab::Row& row = tab->row(number);
    if (row.texts.at(column).isNull() || row.texts.at(column) == text)
        return false;
    push({Edit, tab, row, number, column, text});
    return true;
}

void ReferenceStack::insertBelow(ReferenceTab* tab, int number)
{
    QStringList blanks;
    for (int i = 0; i < tab->row(number).texts.size(); ++i)
        blanks.append(QStringLiteral(" "));
    push({Insertion, tab, {tab->newId(), blanks}, number + 1, 0, {}});
}

void ReferenceStack::remove(ReferenceTab* tab, int number)
{
    push({Removal, tab, tab->row(number), number, 0, {}});
}

void ReferenceStack::push(const Step& step)
{
    m_steps.resize(m_index);
    m_steps.append(step);
    redo();
}

// Redo restores an inserted row with the texts that it had when it was first removed.
void ReferenceStack::undo()
{
    if (m_index == 0)
        return;
    Step& step = m_steps[--m_index];
    if (step.kind == Edit) {
        step.tab->setText(step.row.id, step.column, step.row.texts.at(step.column));
    } else if (step.kind == Removal) {
        step.tab->insert(step.number, step.row);
    } else {
        if (!step.undone)
            step.row = step.tab->row(step.number);
        step.undone = true;
        step.tab->remove(step.number);
    }
}

// A cell cannot be emptied.
void ReferenceStack::redo()
{
    if (m_index == m_steps.size())
        return;
    const Step& step = m_steps.at(m_index++);
    if (step.kind == Insertion)
        step.tab->insert(step.number, step.row);
    else if (step.kind == Removal)
        step.tab->remove(step.number);
    else if (!step.text.isEmpty())
        step.tab->setText(step.row.id, step.column, step.text);
}
