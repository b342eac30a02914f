#include "host/window/keys/KeySheet.h"

#include "host/window/keys/KeyTable.h"
#include "host/window/language/TerminalLanguage.h"
#include "host/window/settings/dialog_style.h"
#include "host/window/window_style.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

namespace host {

namespace {

constexpr int kColumns = 3;
constexpr int kMargin = 16;            // pixels
constexpr QSize kUsualSize(1000, 800); // pixels for fonts of the usual size: all commands at once

} // namespace

KeySheet::KeySheet(TerminalActions* actions, QWidget* parent)
    : QDialog(parent), m_table(new KeyTable(actions, kColumns))
{
    setObjectName(QStringLiteral("KeySheet"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->addWidget(m_table);
    giveDialogStyle(this);
    resize(QSize(sizeOfText(kUsualSize.width()), sizeOfText(kUsualSize.height()))
               .boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    keepSaid(this, [this] { setWindowTitle(uiText("快捷键")); });
}

void KeySheet::themeChanged()
{
    giveDialogStyle(this);
}

} // namespace host
