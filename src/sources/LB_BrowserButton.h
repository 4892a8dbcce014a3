#pragma once

#include "sources/SourceTreeView.h"

#include <QPushButton>

/// The OK button of the directory browser. A push button that knows the tree whose selection it
/// confirms. Main thread.
class LB_BrowserButton : public QPushButton {
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    lyrabox::SourceTreeView *browserOutlineView() const { return m_browserOutlineView; }
    void setBrowserOutlineView(lyrabox::SourceTreeView *view) { m_browserOutlineView = view; }

private:
    lyrabox::SourceTreeView *m_browserOutlineView = nullptr;
};
