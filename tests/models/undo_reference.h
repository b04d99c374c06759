// The expected effects of undo and redo, in a simple form: rows with IDs and lists of steps,
// without models and indexes.
#pragma once

#include <QStringList>
#include <QVector>

class ReferenceTab {
public:
    // A row with its ID and the texts of its cells, null for a cell that was never assigned.
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

    // Does nothing if no row has the ID.
    void setText(int id, int column, const QString& text);

private:
    QVector<Row> m_rows;
    int m_lastId = 0;
};

// Each operation is executed at once and added as a step.
class ReferenceStack {
public:
    // False, without a step, for a cell that was never assigned, and for a text that does not
    // change it.
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
        ReferenceTab::Row row;  // the row before an edit, or the inserted or removed one
        int number = 0;         // number of the row
        int column = 0;
        QString text;
        bool undone = false;  // has been undone at least once
    };

    void push(const Step& step);

    QVector<Step> m_steps;
    int m_index = 0;
};
