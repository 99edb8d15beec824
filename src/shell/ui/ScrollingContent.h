#pragma once

class QWidget;

// Fills `page` with a vertical scroll area around `content`: settings pages longer than a small
// screen scroll instead of squeezing their fields.
void setScrollingContent(QWidget* page, QWidget* content);
