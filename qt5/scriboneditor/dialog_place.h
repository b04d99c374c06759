// Where a cell's dialog stands.
#pragma once

class QWidget;

// Moves a dialog that reaches beyond the screen of its parent back into it, as far as it fits: the
// buttons of one over a low cell would be out of reach.
void keepOnScreen(QWidget* dialog);
