#pragma once

#include "integrations/infopage/InfoPageFile.h"
#include "integrations/template/TemplateSources.h"
#include "shell/ui/CPageView.h"

#include <QImage>
#include <functional>
#include <vector>

class CInfoElement;

// A user page: one page file drawn as its background and its elements, each showing its text
// templates filled with live values. Taps on button elements hand their "Action" to the shell.
class CModuleCustom : public CPageView {
    Q_OBJECT
public:
    // The values of the templates at this moment.
    using SourcesProvider = std::function<TemplateSources()>;
    // Runs an element's "Action": a page name selects that page, anything else goes to the actions.
    using ActionHandler = std::function<void(const QString&)>;

    CModuleCustom(SourcesProvider sources, ActionHandler onAction, QWidget* parent = nullptr);

    // Replaces background and elements by those of the file; false when it cannot be read, which
    // leaves the page empty.
    bool LoadPage(const QString& path, const QString& listSection = {});
    const QString& Name() const { return m_file.Name(); }

    void OnUpdate(uint16_t hint) override;

    // The element windows in list order; an element without "Type" in its state has none.
    const std::vector<CInfoElement*>& Elements() const { return m_elements; }
    uint8_t ElementState(size_t index) const { return m_states.at(index); }
    // A tap on the element at `index`, as the finger gives it.
    void Tap(size_t index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // (Re)creates the window of one element for its current state.
    void MakeElement(size_t index);
    void Place(size_t index);
    void Expand(size_t index, const TemplateSources& sources);

    SourcesProvider m_sources;
    ActionHandler m_onAction;
    InfoPageFile m_file;
    QImage m_tile;
    std::vector<CInfoElement*> m_elements; // owned by Qt as children
    std::vector<uint8_t> m_states;
    int m_nUpdates = 0;
};
