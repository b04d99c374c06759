#include "antlr3_basetreeeditor.h"

#include <QPainter>

Antlr3_BaseTreeEditor::Antlr3_BaseTreeEditor(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setAutoFillBackground(true);
}

Antlr3_BaseTreeEditor::~Antlr3_BaseTreeEditor() = default;

QSize Antlr3_BaseTreeEditor::sizeHint() const
{
    return {15, 20};
}

void Antlr3_BaseTreeEditor::paintEvent(QPaintEvent* /*event*/)
{
    const QPainter painter(this);
}

void Antlr3_BaseTreeEditor::mouseMoveEvent(QMouseEvent* /*event*/) {}

void Antlr3_BaseTreeEditor::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    Q_EMIT editingFinished();
}
