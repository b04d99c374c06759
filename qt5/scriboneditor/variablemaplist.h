// The catalogue of the platform's live variables, by group: what stands in shared memory at the
// moment when it is made.
#pragma once

#include <QFlags>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>

#include "editor_types.h"
#include "memory_areas.h"

Q_DECLARE_FLAGS(QT_MARVANE_VAR_TYPE, QT_MARVANE_FLAGS)
Q_DECLARE_OPERATORS_FOR_FLAGS(QT_MARVANE_VAR_TYPE)

using VariablesByGroup = QMap<QString, QStringList>;

// Fills its target in the constructor and is done then. A platform that has gone away ends the
// program.
class VariableMapList : public QObject, private MemoryAreas {
    Q_OBJECT

public:
    // From a variable's name to its group.
    VariableMapList(QMap<QString, QString>* map, QFlags<QT_MARVANE_FLAGS> type, QObject* parent);

    // From a group's name to its variables: the labels in the order of their table, then the
    // aliases. A group without a variable in use is not there.
    VariableMapList(VariablesByGroup* map, QFlags<QT_MARVANE_FLAGS> type, QObject* parent);

private:
    struct Table;
    struct Tables;

    void retrieveData(bool useKeys, QT_MARVANE_VAR_TYPE type);
    void walkGeneralUse(bool useKeys, QT_MARVANE_VAR_TYPE type);

    // Walks those of the tables whose kind of variable is wanted.
    template <size_t N>
    void walk(const Table (&tables)[N], QT_MARVANE_VAR_TYPE type, bool useKeys,
              bool useIndexNumber = false);
    void walkArea(const Table* begin, const Table* end, QT_MARVANE_VAR_TYPE type, bool useKeys,
                  bool useIndexNumber);
    void walkTables(const Table* begin, const Table* end, const void* area,
                    QT_MARVANE_VAR_TYPE type, bool useKeys, bool useIndexNumber);

    template <typename T>
    void x_label(const T* ptr, unsigned short n, const char* section_label, bool useKeys,
                 bool useIndexNumber);
    template <typename T>
    void addAliases(const T* ptr, unsigned short n, const char* section_label, bool useKeys,
                    QStringList* list);
    template <typename T>
    void other_label(const T* ptr, unsigned short n, const char* section_title, bool useKeys);
    void insertGroup(const char* section_label, const QStringList& list);

    VariablesByGroup* m_variables_keys = nullptr;
    QMap<QString, QString>* m_variables = nullptr;
    QT_MARVANE_VAR_TYPE varType;  // the filter travels as an argument
    const SYSTEM_ATTRIBUTES* m_attributes = nullptr;
};

// The current catalogue by group and the filter that it was made with. A dialog that still shows an
// older one keeps that alive.
extern std::shared_ptr<const VariablesByGroup> Master_variables;
extern int VMLType;

// Called before the process ends because the platform is gone; null for nothing to be done.
extern void (*beforePlainExit)();

// Makes the current catalogue anew with this filter.
void rebuildMasterVariables(QT_MARVANE_VAR_TYPE type);
