#include "integrations/ui/CModuleLivepos.h"

#include "integrations/livepos/CLiveposLookup.h"
#include "integrations/livepos/CLiveposSender.h"
#include "integrations/livepos/LiveposSettings.h"
#include "integrations/livepos/LiveposUrl.h"
#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"
#include "shell/ui/ScrollingContent.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

struct IntervalChoice {
    const char* text;
    int seconds;
};
const IntervalChoice kIntervals[] = {{"1 min", 60},    {"5 min", 300},   {"10 min", 600},
                                     {"20 min", 1200}, {"30 min", 1800}, {"1 h", 3600}};

QLineEdit* lineEdit(const QString& text, QWidget* parent) {
    auto* edit = new QLineEdit(text, parent);
    edit->setMinimumWidth(60);
    return edit;
}

// Texts that may be longer than a small screen is wide wrap at spaces and never widen the page.
QLabel* wrappedLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

} // namespace

CModuleLivepos::CModuleLivepos(CLiveposSender& sender, Actions actions, QWidget* parent)
    : CPageView(parent), m_sender(sender), m_actions(std::move(actions)),
      m_pLookup(new CLiveposLookup(DeviceRoot::current().cacheFolder(), this)) {
    CRegistryKey key;
    auto* content = new QWidget;
    auto* form = new QFormLayout(content);
    form->setRowWrapPolicy(QFormLayout::WrapAllRows); // labels above their fields: readable on 240 pixels
    m_pNickName = lineEdit(readSetting(key, LiveposSettings::kNickName), content);
    m_pPassword = lineEdit(readSetting(key, LiveposSettings::kPassword), content);
    m_pPassword->setEchoMode(QLineEdit::Password);
    m_pComment = lineEdit(readSetting(key, LiveposSettings::kComment), content);
    form->addRow(QStringLiteral("Nick Name"), m_pNickName);
    form->addRow(QStringLiteral("Passwort"), m_pPassword);
    form->addRow(QStringLiteral("Kommentar"), m_pComment);

    const int nInterval = readSetting(key, LiveposSettings::kSendEvery);
    m_pSend = new QCheckBox(QStringLiteral("Position senden alle"), content);
    m_pSend->setChecked(nInterval != 0);
    m_pInterval = new QComboBox(content);
    for (const IntervalChoice& choice : kIntervals) {
        m_pInterval->addItem(QString::fromLatin1(choice.text), choice.seconds);
        if (choice.seconds == nInterval) m_pInterval->setCurrentIndex(m_pInterval->count() - 1);
    }
    form->addRow(m_pSend, m_pInterval);

    // The server is part of the address: point it elsewhere here (or with "tarvik-tool reg").
    m_pSendUrl = lineEdit(readSetting(key, LiveposSettings::kUrlSendPos), content);
    m_pSendUrl->setCursorPosition(0);
    form->addRow(QStringLiteral("Sendeadresse"), m_pSendUrl);
    form->addRow(wrappedLabel(
        QStringLiteral("Standard: dieser Rechner (%1)").arg(LiveposSettings::kServiceHost), content));
    // The server's address under the switch: a check box does not wrap, and an address can be long.
    const QString traccarServer = readSetting(key, LiveposSettings::kTraccarServer);
    m_pTraccar = new QCheckBox(QStringLiteral("Traccar-Server"), content);
    m_pTraccar->setChecked(m_pSendUrl->text() == LiveposUrl::TraccarTemplate(traccarServer));
    connect(m_pTraccar, &QCheckBox::toggled, this, &CModuleLivepos::UseTraccar);
    form->addRow(m_pTraccar);
    form->addRow(wrappedLabel(traccarServer, content));
    m_pQueue = new QCheckBox(QStringLiteral("Offline-Puffer"), content);
    m_pQueue->setChecked(readSetting(key, LiveposSettings::kQueue));
    form->addRow(m_pQueue);
    m_pStatus = wrappedLabel(QString(), content);
    form->addRow(m_pStatus);

    m_pSearchNickName = lineEdit(readSetting(key, LiveposSettings::kSearchNickName), content);
    m_pSearchPassword = lineEdit(readSetting(key, LiveposSettings::kSearchPassword), content);
    m_pSearchPassword->setEchoMode(QLineEdit::Password);
    form->addRow(QStringLiteral("Suche Nick"), m_pSearchNickName);
    form->addRow(QStringLiteral("Passwort"), m_pSearchPassword);
    m_pGetPos = new QPushButton(QStringLiteral("Position holen"), content);
    connect(m_pGetPos, &QPushButton::clicked, this, &CModuleLivepos::GetPos);
    m_pResult = wrappedLabel(QString(), content);
    form->addRow(m_pGetPos, m_pResult);
    m_pToGoTo = new QPushButton(QStringLiteral("Übernehme Position in GoTo Seite"), content);
    m_pToNavigation = new QPushButton(QStringLiteral("An Navigationsprogramm"), content);
    auto* home = new QPushButton(QStringLiteral("Livepos Homepage"), content);
    for (QPushButton* button : {m_pToGoTo, m_pToNavigation, home}) {
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // long texts must not widen the page
        form->addRow(button);
    }
    m_pToGoTo->setEnabled(false);
    m_pToNavigation->setEnabled(false);
    connect(m_pToGoTo, &QPushButton::clicked, this, [this] {
        if (m_actions.setGoToTarget) m_actions.setGoToTarget(m_dLong, m_dLat, m_strText);
    });
    connect(m_pToNavigation, &QPushButton::clicked, this, [this] {
        if (m_actions.handToNavigation) m_actions.handToNavigation(m_dLong, m_dLat, m_strText);
    });
    connect(home, &QPushButton::clicked, this, [this] {
        CRegistryKey homeKey;
        if (m_actions.openBrowser) m_actions.openBrowser(readSetting(homeKey, LiveposSettings::kHomeUrl));
    });

    setScrollingContent(this, content);

    connect(&m_sender, &CLiveposSender::statusChanged, this, &CModuleLivepos::ShowSendStatus);
    connect(m_pLookup, &CLiveposLookup::finished, this, [this](const CLiveposLookup::Result& result) {
        QApplication::restoreOverrideCursor();
        m_pGetPos->setEnabled(true);
        ShowLookup(result.strShown, result.answer);
    });
    ShowSendStatus();
}

CModuleLivepos::~CModuleLivepos() {
    if (m_pLookup->IsRunning()) QApplication::restoreOverrideCursor();
}

void CModuleLivepos::UseTraccar(bool bOn) {
    CRegistryKey key;
    m_pSendUrl->setText(bOn ? LiveposUrl::TraccarTemplate(readSetting(key, LiveposSettings::kTraccarServer))
                            : QString::fromUtf8(LiveposSettings::kUrlSendPos.m_default));
    m_pSendUrl->setCursorPosition(0);
}

void CModuleLivepos::ShowSendStatus() {
    QString text = m_sender.StatusText();
    if (m_sender.LastHttpStatus() != 0) text += QStringLiteral("  (HTTP %1)").arg(m_sender.LastHttpStatus());
    m_pStatus->setText(text);
}

void CModuleLivepos::GetPos() {
    CRegistryKey key;
    writeSetting(key, LiveposSettings::kSearchNickName, m_pSearchNickName->text());
    writeSetting(key, LiveposSettings::kSearchPassword, m_pSearchPassword->text());
    if (!m_pLookup->Start(LiveposUrl::BuildGetUrl(m_pSearchNickName->text(), m_pSearchPassword->text(), {})))
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_pGetPos->setEnabled(false);
}

void CModuleLivepos::ShowLookup(const QString& shown, const LiveposAnswer& answer) {
    m_pResult->setText(shown.left(200));
    m_dLong = answer.dLong;
    m_dLat = answer.dLat;
    m_strText = answer.strText;
    m_pToGoTo->setEnabled(answer.bComplete);
    m_pToNavigation->setEnabled(answer.bComplete && bool(m_actions.handToNavigation));
}

void CModuleLivepos::Store() {
    CRegistryKey key;
    writeSetting(key, LiveposSettings::kNickName, m_pNickName->text());
    writeSetting(key, LiveposSettings::kPassword, m_pPassword->text());
    writeSetting(key, LiveposSettings::kComment, m_pComment->text());
    writeSetting(key, LiveposSettings::kSendEvery,
                 int32_t(m_pSend->isChecked() ? m_pInterval->currentData().toInt() : 0));
    writeSetting(key, LiveposSettings::kUrlSendPos, m_pSendUrl->text());
    writeSetting(key, LiveposSettings::kQueue, m_pQueue->isChecked());
    m_sender.LoadSettings();
    m_sender.PostponeByInterval();
}

void CModuleLivepos::hideEvent(QHideEvent* event) {
    Store();
    CPageView::hideEvent(event);
}
