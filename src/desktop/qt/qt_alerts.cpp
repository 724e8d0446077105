#include "desktop/qt/qt_alerts.h"

#include "desktop/qt/localized.h"
#include "desktop/qt/program_icon.h"

#include <QApplication>
#include <QCheckBox>
#include <QEventLoop>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QWindow>

#include <utility>

namespace panewright {
namespace {

QMessageBox::Icon iconFor(AlertStyle style) {
    switch (style) {
    case AlertStyle::kWarning:
        return QMessageBox::Warning;
    case AlertStyle::kInformational:
        return QMessageBox::Information;
    case AlertStyle::kCritical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

/// In the order of their titles. The first button is Return's, the last one Escape's and that of
/// the window's closing.
QList<QAbstractButton*> addButtons(QMessageBox& box, const std::vector<std::string>& titles) {
    QList<QAbstractButton*> buttons;
    for (std::size_t i = 0; i < titles.size(); ++i) {
        const auto role = i == 0                   ? QMessageBox::AcceptRole
                          : i + 1 == titles.size() ? QMessageBox::RejectRole
                                                   : QMessageBox::ActionRole;
        auto* button = box.addButton(QString::fromStdString(titles[i]).replace('&', "&&"), role);
        if (i == 0) {
            box.setDefaultButton(button);
        }
        box.setEscapeButton(button);
        buttons.append(button);
    }
    return buttons;
}

/// Keeps what the user does from a window while a question about it is open, which gets the
/// keyboard instead.
///
/// The toolkit's modality would leave the keyboard with the window after a click, where nothing
/// hears it: it asks for the keyboard as any program does, which a window manager need not grant.
class Blocking : public QObject {
public:
    Blocking(QMessageBox& question, QWindow& blocked, OwnWindows& ownWindows)
        : QObject(&question), question_(question), ownWindows_(ownWindows) {
        blocked.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (!question_.isVisible()) {
            return false;
        }
        switch (event->type()) {
        case QEvent::FocusIn:
            ownWindows_.makeKey(question_.winId());
            return false;
        case QEvent::Close:
            event->ignore();
            return true;
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
            return true;
        default:
            return false;
        }
    }

private:
    QMessageBox& question_;
    OwnWindows& ownWindows_;
};

/// Also for screen readers, to which the toolkit shows a nameless picture.
void setIcon(QMessageBox& box, AlertStyle style) {
    box.setIcon(iconFor(style));
    if (auto* picture = box.findChild<QLabel*>("qt_msgboxex_icon_label")) {
        picture->setAccessibleName(style == AlertStyle::kInformational ? localized("Information")
                                                                       : localized("Warning"));
    }
}

QMessageBox* makeBox(const Alert& alert, QWidget* blocked) {
    auto* box = new QMessageBox(blocked);
    setIcon(*box, alert.style);
    box->setWindowTitle(QApplication::applicationDisplayName());
    box->setWindowIcon(programIcon());
    box->setText(QString::fromStdString(alert.messageText));
    box->setInformativeText(QString::fromStdString(alert.informativeText));
    for (auto* label : box->findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText); // a file's name may look like markup
    }
    if (alert.showsSuppressionButton) {
        box->setCheckBox(new QCheckBox(localized("Do not show this message again")));
    }
    box->setWindowModality(Qt::NonModal);
    box->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                        Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint);
    return box;
}

} // namespace

Registration QtAlerts::ask(const Alert& alert, Answered answered) {
    return show(alert, [answered = std::move(answered)](const AlertAnswer& answer) {
        answered(answer.response);
    });
}

std::optional<AlertAnswer> QtAlerts::runModal(const Alert& alert) {
    QEventLoop loop; // ends with the main loop too
    std::optional<AlertAnswer> answer;
    const auto question = show(alert, [&](const AlertAnswer& given) {
        answer = given;
        loop.quit();
    });
    loop.exec();
    return answer;
}

Registration QtAlerts::show(const Alert& alert, std::function<void(const AlertAnswer&)> answered) {
    QPointer<QWidget> blocked = QApplication::activeWindow();
    QPointer<QMessageBox> box = makeBox(alert, blocked);
    const auto buttons = addButtons(*box, alert.buttons);
    QObject::connect(box, &QMessageBox::finished, box,
                     [this, box, buttons, blocked, answered = std::move(answered)] {
                         auto* const clicked = box->clickedButton();
                         const auto pressed = buttons.indexOf(clicked ? clicked : buttons.last());
                         box->deleteLater();
                         if (blocked && blocked->isVisible()) {
                             ownWindows_.makeKey(blocked->winId());
                         }
                         const auto* const suppression = box->checkBox();
                         answered({kAlertFirstButtonReturn + static_cast<int>(pressed),
                                   suppression && suppression->isChecked()});
                     });
    if (blocked) {
        new Blocking(*box, *blocked->windowHandle(), ownWindows_); // owned by the box
        ownWindows_.keepOutOfTaskBars(box->winId());
    }
    box->show();
    ownWindows_.makeKey(box->winId());
    return Registration([box] {
        if (box) {
            box->disconnect();
            box->hide();
            box->deleteLater();
        }
    });
}

} // namespace panewright
