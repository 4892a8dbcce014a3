#include "sources/BrowserPopover.h"

#include "app/controls/LB_PopoverViewController.h"
#include "sources/LB_BrowserButton.h"
#include "ui_BrowserPopover.h"

namespace lyrabox {

BrowserPopoverContent makeBrowserPopover()
{
    auto *content = LB_PopoverViewController::load<Ui::BrowserPopover>();
    QWidget *view = content->view();
    content->setParent(view);
    auto *outline = view->findChild<SourceTreeView *>(QStringLiteral("browserOutlineView"));
    auto *okButton = view->findChild<LB_BrowserButton *>(QStringLiteral("okButton"));
    okButton->setBrowserOutlineView(outline);
    outline->viewport()->setAutoFillBackground(true);

    auto *controller = new LB_BrowserController(view);
    controller->setBrowserOutlineView(outline);
    QObject::connect(controller, &LB_BrowserController::hasSelectionChanged, okButton,
                     &QWidget::setEnabled);
    // Return confirms. A double-click may be meant to expand the row.
    QObject::connect(
        outline, &QAbstractItemView::activated, okButton, [okButton](const QModelIndex &index) {
            const auto *tree = okButton->browserOutlineView();
            if (!static_cast<const SourceTreeModel *>(tree->model())->isExpandable(index))
                okButton->click();
        });
    controller->awakeFromNib();
    okButton->setEnabled(controller->hasSelection());
    return {view, controller, okButton};
}

} // namespace lyrabox
