#include "integrations/ui/CModuleCustom.h"

#include "integrations/template/ExpandTemplate.h"
#include "integrations/ui/CInfoButton.h"
#include "integrations/ui/InfoElementPainter.h"

#include <QPainter>

CModuleCustom::CModuleCustom(SourcesProvider sources, ActionHandler onAction, QWidget* parent)
    : CPageView(parent), m_sources(std::move(sources)), m_onAction(std::move(onAction)) {}

bool CModuleCustom::LoadPage(const QString& path, const QString& listSection) {
    for (CInfoElement* pElement : m_elements)
        delete pElement;
    m_elements.clear();
    const bool bLoaded = m_file.Load(path, listSection);
    m_tile = loadInfoImage(m_file.BackgroundImage());
    const qsizetype nCount = m_file.ElementNames().size();
    m_elements.assign(static_cast<size_t>(nCount), nullptr);
    m_states.assign(static_cast<size_t>(nCount), 0);
    for (size_t i = 0; i < m_elements.size(); ++i)
        MakeElement(i);
    update();
    return bLoaded;
}

void CModuleCustom::MakeElement(size_t index) {
    delete m_elements[index];
    m_elements[index] = nullptr;
    const QString& name = m_file.ElementNames()[static_cast<qsizetype>(index)];
    const auto spec = m_file.ReadElement(name, m_states[index]);
    if (!spec) {
        m_states[index] = 0;
        return;
    }
    CInfoElement* pElement = nullptr;
    if (spec->IsButton()) {
        auto* pButton = new CInfoButton(*spec, this);
        connect(pButton, &CInfoButton::tapped, this, [this, index] { Tap(index); });
        pElement = pButton;
    } else {
        pElement = new CInfoElement(*spec, this);
    }
    m_elements[index] = pElement;
    Place(index);
    Expand(index, m_sources ? m_sources() : TemplateSources());
    pElement->show();
}

void CModuleCustom::Place(size_t index) {
    const Rect rect = resolveElementRect(m_elements[index]->Spec().pos, width(), height());
    m_elements[index]->setGeometry(infoRect(rect));
}

void CModuleCustom::Expand(size_t index, const TemplateSources& sources) {
    m_elements[index]->SetText(ExpandTemplate(m_elements[index]->Spec().Template(), sources));
}

void CModuleCustom::OnUpdate(uint16_t) {
    ++m_nUpdates;
    const TemplateSources sources = m_sources ? m_sources() : TemplateSources();
    for (size_t i = 0; i < m_elements.size(); ++i) {
        if (!m_elements[i]) continue;
        if (m_elements[i]->Spec().RefreshesAt(m_nUpdates)) Expand(i, sources);
    }
}

void CModuleCustom::Tap(size_t index) {
    if (index >= m_elements.size() || !m_elements[index]) return;
    const InfoElementSpec spec = m_elements[index]->Spec();
    // The element is made anew later: the tap may have come from the very window it replaces.
    if (m_file.Tap(spec, m_states[index], m_onAction))
        QMetaObject::invokeMethod(
            this, [this, index] { MakeElement(index); }, Qt::QueuedConnection);
}

void CModuleCustom::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintInfoBackground(painter, rect(), m_tile, m_file.BackgroundColour());
}

void CModuleCustom::resizeEvent(QResizeEvent*) {
    for (size_t i = 0; i < m_elements.size(); ++i)
        if (m_elements[i]) Place(i);
}
