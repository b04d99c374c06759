// What undo and redo have to do, told in the simplest way: rows that know who they are, and stacks
// of steps, without models and without indexes.
#pragma once

#include <QStringList>
#include <QVector>

class ReferenceTab {
public:
    // Rows by what tells one from another, and their cells' texts, null for a cell that was never
    // assigned.
    struct Row {
        int id = 0;
        QStringList texts;
    };

    explicit ReferenceTab(const QVector<QStringList>& rows);

    QVector<QStringList> texts() const;
    int rowCount() const { return m_rows.size(); }
    const Row& row(int number) const { return m_rows.at(number); }

    int newId() { return ++m_lastId; }
    void insert(int number, const Row& row) { m_rows.insert(number, row); }
    void remove(int number) { m_rows.removeAt(number); }

    // Does nothing when no row has the id.
    void setText(int id, int column, const QString& text);

private:
    QVector<Row> m_rows;
    int m_lastId = 0;
};

// Each operation is done at once and becomes a step.
class ReferenceStack {
public:
    // False, and no step, for a cell that was never assigned and for the text that it has.
    bool edit(ReferenceTab* tab, int number, int column, const QString& text);
    void insertBelow(ReferenceTab* tab, int number);
    void remove(ReferenceTab* tab, int number);

    void undo();
    void redo();
    int index() const { return m_index; }

private:
    enum Kind { Edit, Insertion, Removal };

    struct Step {
        Kind kind = Edit;
        ReferenceTab* tab = nullptr;
        ReferenceTab::Row row;  // the edited one before, or the one that comes or goes
        int number = 0;         // where it stands
        int column = 0;
        QString text;
        bool undone = false;  // once at least
    };

    void push(const Step& step);

    QVector<Step> m_steps;
    int m_index = 0;
};
