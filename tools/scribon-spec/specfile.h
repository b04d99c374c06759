// A spec file as the editor would open it: five validated tables, and where each of their texts
// stands in the file.
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <memory>
#include <vector>

#include "editor_types.h"
#include "tabrows.h"
#include "treemodel.h"

// A cell of a table. Tabs are DE_TAB1 to DE_TAB5, rows and columns those of the model.
struct CellPlace {
    int tab = -1;  // none
    int row = 0;
    int column = 0;

    bool isValid() const { return tab >= 0; }
};

// A place in a file, both from 1. Columns count UTF-16 code units.
struct FilePlace {
    int line = 1;
    int column = 1;
};

// The places of the texts in the cells of a tab.
class TabOrigins final : public RowReceiver {
public:
    explicit TabOrigins(int columns) : m_columns(columns) {}

    bool wantsTexts() const override { return false; }
    void appendRow(FileRange statement) override;
    void setCell(int column, const QString& text, FileRange range) override;

    // Size 0 for a cell whose text is not from the file.
    FileRange cell(int row, int column) const;

    // Where the statement of the row begins; size 0 for a section that the file does not have.
    FileRange statement(int row) const { return m_statements[static_cast<size_t>(row)]; }

    int rowCount() const { return static_cast<int>(m_statements.size()); }
    int columnCount() const { return m_columns; }

private:
    int m_columns;
    std::vector<FileRange> m_ranges;
    std::vector<FileRange> m_statements;
};

class SpecFile {
public:
    enum class State { Loaded, Unreadable, Refused };

    // Reads the file as a new editor would. "-" is the standard input. Reading one ends the life of
    // the syntax tree of the one before, but not of its tables.
    static SpecFile read(const QString& name);

    // The same for a text that is in no file. The name is used in messages only.
    static SpecFile fromBytes(const QByteArray& bytes, const QString& name);

    // A file that cannot be read, for this reason.
    static SpecFile unreadable(const QString& name, const QString& problem);

    SpecFile(SpecFile&&) noexcept;
    SpecFile& operator=(SpecFile&&) noexcept;
    ~SpecFile();

    State state() const { return m_state; }
    const QString& name() const { return m_name; }

    // Why the file is unreadable.
    const QString& problem() const { return m_problem; }

    // The content of the file; empty if it is unreadable.
    const QByteArray& bytes() const { return m_bytes; }
    SpecEncoding encoding() const { return m_encoding; }
    FilePlace placeOf(size_t offset) const;
    int lineNumberOf(size_t offset) const;

    // The text of a range, and the line that it begins in, without the line's end.
    QString textOf(FileRange range) const;
    QString lineOf(size_t offset) const;

    // Only of a loaded file. Tabs are DE_TAB1 to DE_TAB5.
    const TreeModel& table(int tab) const { return *m_tables[static_cast<size_t>(tab)]; }
    const TabOrigins& origins(int tab) const { return m_origins[static_cast<size_t>(tab)]; }

    // The text that Save writes of a cell; empty where there is none, and for a cell outside the
    // table.
    QString cellText(const CellPlace& cell) const;

    // What the editor's Save would write. Only of a loaded file.
    QByteArray savedBytes() const;

private:
    // A place from which columns are counted on.
    struct KnownColumn {
        int offset = 0;
        int column = 1;
    };

    explicit SpecFile(QString name);
    void load(const QString& path);
    void makeTables();

    State m_state = State::Unreadable;
    QString m_name;
    QString m_problem;
    QByteArray m_bytes;
    std::vector<int> m_lineStarts{0};
    mutable KnownColumn m_known;
    SpecEncoding m_encoding = SpecEncoding::Local;
    std::array<std::unique_ptr<TreeModel>, TAB_COUNT> m_tables;
    std::vector<TabOrigins> m_origins;
};
