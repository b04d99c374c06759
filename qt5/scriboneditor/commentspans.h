// Lets the comments of the Keywords tab span all columns of its table, so that a long comment does
// not make the first column wide. In a file with very many comments, which QTreeView would search
// for each row, only those in sight do.
#pragma once

#include <QObject>
#include <QPersistentModelIndex>
#include <QSet>
#include <functional>

class TableView;
class TreeModel;

class CommentSpans : public QObject {
    Q_OBJECT

public:
    using SetSpan = std::function<void(int row, bool span)>;

    // Owned by the view. setSpan lets a row of the view span the columns, or not.
    CommentSpans(TableView* view, SetSpan setSpan);

    // To be called when the view has got the model, before its columns are fitted. The spans then
    // follow the changes of the model, whose first column has the comments.
    void watch(TreeModel* model);

private:
    void update(int first, int last);
    void setSpan(int row, bool span);
    bool tooMany() const;
    void keepToSight();
    void updateSight();
    void findSight();
    bool isInSight(int row) const;
    void removeSpans(int first, int last);

    TableView* m_view;
    SetSpan m_setSpan;
    TreeModel* m_model = nullptr;
    QSet<QPersistentModelIndex> m_spans;  // the first cells of the rows that span the columns
    bool m_onlyInSight = false;
    int m_top = 0;  // rows in sight
    int m_bottom = -1;
};
