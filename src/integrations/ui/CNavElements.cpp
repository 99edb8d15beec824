#include "integrations/ui/CNavElements.h"

#include "integrations/ui/CInfoButton.h"
#include "integrations/ui/InfoElementPainter.h"
#include "integrations/ui/OverlayWindow.h"

CNavElements::CNavElements(ActionHandler onAction, QObject* parent)
    : QObject(parent), m_onAction(std::move(onAction)) {}

CNavElements::~CNavElements() = default;

void CNavElements::Load(const QString& path, const QString& listSection) {
    m_windows.clear();
    m_file = InfoPageFile();
    if (!path.isEmpty()) {
        m_file.Load(path, listSection);
        if (!listSection.isEmpty() && !m_file.HasSection(listSection)) m_file.Load(path);
    }
    const size_t nCount = static_cast<size_t>(m_file.ElementNames().size());
    m_windows.resize(nCount);
    m_states.assign(nCount, 0);
    m_nUpdates = 0;
    for (size_t i = 0; i < nCount; ++i)
        MakeWindow(i);
}

void CNavElements::MakeWindow(size_t index) {
    m_windows[index].reset();
    const auto spec =
        m_file.ReadElement(m_file.ElementNames()[static_cast<qsizetype>(index)], m_states[index]);
    if (!spec) {
        m_states[index] = 0;
        return;
    }
    if (spec->IsButton()) {
        auto* pButton = new CInfoButton(*spec, nullptr);
        connect(pButton, &CInfoButton::tapped, this, [this, index] { Tap(index); });
        m_windows[index].reset(pButton);
    } else {
        m_windows[index] = std::make_unique<CInfoElement>(*spec, nullptr);
    }
    CInfoElement& window = *m_windows[index];
    makeOverlayWindow(window);
    window.setObjectName(spec->strName);
    if (m_expand) window.SetText(m_expand(spec->Template()));
    Place(window);
}

void CNavElements::Follow(const std::optional<QRect>& frame, const Expander& expand) {
    m_frame = frame;
    m_expand = expand;
    ++m_nUpdates;
    for (const std::unique_ptr<CInfoElement>& pWindow : m_windows) {
        if (!pWindow) continue;
        const InfoElementSpec& spec = pWindow->Spec();
        // The first refresh after loading fills every text, whatever "Refresh" says.
        if (frame && expand && (m_nUpdates == 1 || spec.RefreshesAt(m_nUpdates)))
            pWindow->SetText(expand(spec.Template()));
        Place(*pWindow);
    }
}

void CNavElements::Place(CInfoElement& window) const {
    if (!m_frame) {
        window.hide();
        return;
    }
    const Rect rect = resolveElementRect(window.Spec().pos, m_frame->width(), m_frame->height());
    window.setGeometry(infoRect(rect).translated(m_frame->topLeft()));
    if (!window.isVisible()) window.show();
    window.raise();
}

void CNavElements::Tap(size_t index) {
    if (index >= m_windows.size() || !m_windows[index]) return;
    const InfoElementSpec spec = m_windows[index]->Spec();
    // Made anew later: the tap came from the very window it replaces.
    if (m_file.Tap(spec, m_states[index], m_onAction))
        QMetaObject::invokeMethod(
            this, [this, index] { MakeWindow(index); }, Qt::QueuedConnection);
}
