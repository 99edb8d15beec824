#pragma once

#include "integrations/infopage/InfoPageFile.h"

#include <QObject>
#include <QRect>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class CInfoElement;

// The elements of "MNInfo.ini" over the navigation program: each element a window of its own,
// frameless and above the program's window, placed at its "Pos" inside that window (negative
// positions count from its right and bottom edge) and showing its templates filled with live values.
// Buttons run their "Action"; switches ("Type" 2) step through their states.
class CNavElements : public QObject {
    Q_OBJECT
public:
    using ActionHandler = std::function<void(const QString&)>;
    using Expander = std::function<QString(const QString&)>;

    explicit CNavElements(ActionHandler onAction, QObject* parent = nullptr);
    ~CNavElements() override;

    // Makes the windows anew from the file (a host path; empty for none) and its element list
    // section (empty: the default list); a section the file lacks counts as none given.
    void Load(const QString& path, const QString& listSection);
    bool IsEmpty() const { return m_file.ElementNames().isEmpty(); }
    // Places the windows over the navigation window's frame (screen coordinates) and fills their
    // texts as their "Refresh" says; hides them while there is no frame.
    void Follow(const std::optional<QRect>& frame, const Expander& expand);

    // The element windows in list order; null for an element without "Type" in its state.
    const std::vector<std::unique_ptr<CInfoElement>>& Windows() const { return m_windows; }
    void Tap(size_t index);

private:
    void MakeWindow(size_t index);
    void Place(CInfoElement& window) const;

    ActionHandler m_onAction;
    InfoPageFile m_file;
    std::vector<std::unique_ptr<CInfoElement>> m_windows;
    std::vector<uint8_t> m_states;
    std::optional<QRect> m_frame;
    Expander m_expand;
    int m_nUpdates = 0;
};
