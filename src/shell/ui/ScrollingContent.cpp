#include "shell/ui/ScrollingContent.h"

#include <QScrollArea>
#include <QVBoxLayout>

void setScrollingContent(QWidget* page, QWidget* content) {
    auto* scroll = new QScrollArea(page);
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll);
}
