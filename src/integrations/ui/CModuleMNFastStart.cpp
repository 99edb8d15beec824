#include "integrations/ui/CModuleMNFastStart.h"

#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

CModuleMNFastStart::CModuleMNFastStart(QString targetFile, Actions actions, QWidget* parent)
    : CPageView(parent), m_strTargetFile(std::move(targetFile)), m_actions(std::move(actions)) {
    auto* list = new QWidget;
    m_pTargets = new QVBoxLayout(list);
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setWidget(list);
    auto* front = new QPushButton(QStringLiteral("Navigationsprogramm zeigen"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scroll, 1);
    layout->addWidget(front);
    connect(front, &QPushButton::clicked, this, [this] {
        QString error;
        if (m_actions.bringToFront && !m_actions.bringToFront(error)) ShowError(error);
    });
    Reload();
}

void CModuleMNFastStart::Reload() {
    while (QLayoutItem* item = m_pTargets->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (const QuickStartTarget& target : QuickStartTargets::load(m_strTargetFile)) {
        auto* button = new QPushButton(target.strName);
        button->setMinimumHeight(48); // a finger's height in the car holder
        button->setToolTip(QStringLiteral("%1, %2").arg(target.dLong).arg(target.dLat));
        connect(button, &QPushButton::clicked, this, [this, target] { Navigate(target); });
        m_pTargets->addWidget(button);
    }
    m_pTargets->addStretch();
}

void CModuleMNFastStart::Navigate(const QuickStartTarget& target) {
    if (!m_actions.navigate) return;
    const HandOverResult result = m_actions.navigate(target.dLong, target.dLat, target.strName);
    if (!result.bOk) ShowError(result.error);
}

void CModuleMNFastStart::ShowError(const QString& error) {
    auto* box =
        new QMessageBox(QMessageBox::Critical, QStringLiteral("Last Error"), error, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
