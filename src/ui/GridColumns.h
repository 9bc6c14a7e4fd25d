#pragma once

class QTableWidget;

namespace ui {

// Keeps the columns of `grid` sized to their content within the grid's width, from now on: each
// column as wide as its heading and its longest text; when they do not all fit, the widest give
// way first, never below their heading, and a text cut short shows whole in its tooltip.
void keepColumnsFitted(QTableWidget* grid);

// Sizes the columns once, as keepColumnsFitted does on every change.
void fitColumns(QTableWidget* grid);

} // namespace ui
