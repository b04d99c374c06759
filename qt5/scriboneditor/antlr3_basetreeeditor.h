// A widget for a node of the parse tree. Not used by the program. Existing interface, kept for
// compatibility.
#pragma once

#include <QWidget>

#include "treeitem.h"

class Antlr3_BaseTreeEditor : public QWidget {
    Q_OBJECT

public:
    explicit Antlr3_BaseTreeEditor(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    // The node is owned by the parser.
    void setBaseTree(pANTLR3_BASE_TREE tree) { treeItem = tree; }
    pANTLR3_BASE_TREE baseTree() const { return treeItem; }

Q_SIGNALS:
    void editingFinished();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

public:
    ~Antlr3_BaseTreeEditor() override;

private:
    pANTLR3_BASE_TREE treeItem = nullptr;
};
