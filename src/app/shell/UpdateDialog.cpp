#include "app/shell/UpdateDialog.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace lyrabox {

namespace {

struct UpdateDialog {
    Q_DECLARE_TR_FUNCTIONS(UpdateDialog)
};

/// Shows `dialog` without blocking. An automatic check must not stop the other windows.
void open(QDialog *dialog)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setModal(false);
    dialog->show();
}

} // namespace

SUUpdater::Presenter updateDialogs(QWidget *parent, std::function<bool(const QUrl &)> openURL)
{
    SUUpdater::Presenter presenter;
    presenter.showMessage = [parent](const QString &message, const QString &detail) {
        auto *box = new QMessageBox(QMessageBox::Information, UpdateDialog::tr("Updates"), message,
                                    QMessageBox::Ok, parent);
        box->setInformativeText(detail);
        // The detail may contain text from a server, so all labels show plain text.
        for (QLabel *label : box->findChildren<QLabel *>())
            label->setTextFormat(Qt::PlainText);
        open(box);
    };
    presenter.showUpdate = [parent, openURL = std::move(openURL)](const AppcastItem &update) {
        auto *dialog = new QDialog(parent);
        dialog->setWindowTitle(UpdateDialog::tr("Updates"));
        auto *layout = new QVBoxLayout(dialog);
        auto *headline =
            new QLabel(UpdateDialog::tr("Lyrabox %1 is available.").arg(update.version), dialog);
        headline->setTextFormat(Qt::PlainText);
        headline->setWordWrap(true);
        layout->addWidget(headline);
        auto *notes = new QPlainTextEdit(update.notes, dialog);
        notes->setAccessibleName(UpdateDialog::tr("Release notes"));
        notes->setReadOnly(true);
        notes->setMinimumSize(420, 200);
        layout->addWidget(notes);
        auto *buttons = new QDialogButtonBox(dialog);
        buttons->addButton(UpdateDialog::tr("Later"), QDialogButtonBox::RejectRole);
        QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
        if (!update.page.isEmpty()) {
            QPushButton *page =
                buttons->addButton(UpdateDialog::tr("Open Its Page"), QDialogButtonBox::AcceptRole);
            page->setDefault(true);
            QObject::connect(buttons, &QDialogButtonBox::accepted, dialog,
                             [dialog, openURL, url = update.page] {
                                 openURL(url);
                                 dialog->close();
                             });
        }
        layout->addWidget(buttons);
        open(dialog);
    };
    return presenter;
}

} // namespace lyrabox
