// The position of the dialogs that edit cells.
#pragma once

class QWidget;

// Moves the dialog so that it lies within the available area of its parent's screen. One that is
// too large is aligned to the area's top left. Does nothing without a parent.
void keepOnScreen(QWidget* dialog);
