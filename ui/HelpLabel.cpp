// SPDX-License-Identifier: MIT
#include "ui/HelpLabel.h"

#include "module/HostAccess.h"

#include <QPointer>

HelpLabel::HelpLabel(QWidget *parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("help_label"));
    QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    policy.setHeightForWidth(sizePolicy().hasHeightForWidth());
    setSizePolicy(policy);
    setFrameShadow(QFrame::Plain);
    setLineWidth(0);
    setAutoFillBackground(true);
}

HelpLabel::~HelpLabel() = default;

void HelpLabel::mousePressEvent(QMouseEvent * /*event*/)
{
    const QPointer<QWidget> popup(parentWidget()); // may be deleted while the help runs an event loop
    HostAccess::runCommand(L"_RHELP");
    if (popup)
        popup->close();
}
