#include "integrations/ui/CNavOverlay.h"

#include "integrations/navbridge/NavBridgeSettings.h"
#include "integrations/ui/CNavElements.h"
#include "integrations/ui/CNavInfoBox.h"
#include "integrations/ui/InfoElementPainter.h"
#include "settings/CRegistryKey.h"

namespace {

// An unset box: a strip at the top left, wide enough for "%Speed% km/h".
const QRect kDefaultInner(0, 0, 120, 32);

QColor colour(CRegistryKey& key, const char* name) {
    Colour value = 0;
    if (!key.ReadColour(QString::fromLatin1(name), value)) return {};
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

} // namespace

CNavOverlay::CNavOverlay(Services services, QObject* parent)
    : QObject(parent), m_services(std::move(services)), m_pBox(std::make_unique<CNavInfoBox>()),
      m_pElements(std::make_unique<CNavElements>(m_services.onAction)) {
    m_follow.setInterval(kFollowMs);
    connect(&m_follow, &QTimer::timeout, this, &CNavOverlay::Refresh);
    LoadSettings();
}

CNavOverlay::~CNavOverlay() = default;

void CNavOverlay::LoadSettings() {
    CRegistryKey key;
    m_bOn = readSetting(key, NavBridgeSettings::kInfo);
    m_strTemplate = readSetting(key, NavBridgeSettings::kInfoText);
    Rect rect;
    m_inner = key.ReadRect(QString::fromLatin1(NavBridgeSettings::kInfoRect), rect) &&
                      rect.right > rect.left && rect.bottom > rect.top
                  ? infoRect(rect)
                  : kDefaultInner;
    m_pBox->SetColours(colour(key, NavBridgeSettings::kInfoColorBG),
                       colour(key, NavBridgeSettings::kInfoColorText));
    LoadElements(true);
    if (m_bOn || !m_pElements->IsEmpty())
        m_follow.start();
    else
        m_follow.stop();
    Refresh();
}

void CNavOverlay::LoadElements(bool bAlways) {
    auto infoFile = m_services.infoFile ? m_services.infoFile() : std::pair<QString, QString>();
    if (!bAlways && infoFile == m_infoFile) return;
    m_infoFile = std::move(infoFile);
    m_pElements->Load(m_infoFile.first, m_infoFile.second);
}

void CNavOverlay::Refresh() {
    LoadElements(false); // the program's kind, and with it the section, may be known only now
    const bool bFollow = m_bOn || !m_pElements->IsEmpty();
    const std::optional<QRect> frame =
        bFollow && m_services.navWindowFrame ? m_services.navWindowFrame() : std::nullopt;
    m_pElements->Follow(frame, m_services.expand);
    if (!frame || !m_bOn) {
        m_pBox->hide();
        return;
    }
    m_pBox->SetText(m_services.expand ? m_services.expand(m_strTemplate) : m_strTemplate);
    m_pBox->setGeometry(m_inner.translated(frame->topLeft()));
    if (!m_pBox->isVisible()) m_pBox->show();
    m_pBox->raise();
}
