#include "shell/ui/PlaceholderPage.h"

#include <QLabel>
#include <QVBoxLayout>

PlaceholderPage::PlaceholderPage(const QString& pageName, QWidget* parent) : CPageView(parent) {
    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel(pageName, this);
    QFont big = title->font();
    big.setPointSizeF(big.pointSizeF() * 2);
    title->setFont(big);
    title->setAlignment(Qt::AlignCenter);
    title->setWordWrap(true);
    auto* note = new QLabel(QStringLiteral("Diese Seite gibt es in dieser Version noch nicht."), this);
    note->setAlignment(Qt::AlignCenter);
    note->setWordWrap(true);
    layout->addStretch();
    layout->addWidget(title);
    layout->addWidget(note);
    layout->addStretch();
}
