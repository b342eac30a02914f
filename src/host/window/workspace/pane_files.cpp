#include "host/window/workspace/pane_files.h"

#include "host/window/language/TerminalLanguage.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPixmap>
#include <QProgressDialog>
#include <QSaveFile>

namespace host {

namespace {

constexpr int kPatienceMs = 400; // a shorter writing shows no window

FileResult failed(const QString& file, const QString& reason)
{
    return {false, uiText("无法写入 %1：%2").arg(QDir::toNativeSeparators(file), reason)};
}

/// Devices and pipes are no place for a file: writing would put a file in their stead.
bool isNoFile(const QString& file)
{
    const QFileInfo info(file);
    return info.exists() && !info.isFile();
}

FileResult finish(QSaveFile& target)
{
    const QString file = target.fileName();
    if (!target.commit())
        return failed(file, target.errorString());
    return {true, uiText("已导出 %1").arg(QDir::toNativeSeparators(file))};
}

} // namespace

FileResult writeTable(const PaneTable& table, const QString& file, bool gbk, QWidget* window)
{
    if (isNoFile(file))
        return failed(file, uiText("不是文件"));
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly))
        return failed(file, target.errorString());
    QProgressDialog progress(uiText("正在导出%1").arg(table.name), uiText("取消"), 0, 1, window);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(kPatienceMs);
    const auto encoding = gbk ? Kel::ETableEncoding::eGbk : Kel::ETableEncoding::eUtf8WithMark;
    const Kel::ETableResult result =
        Kel::writeCsv(table.table, target, encoding, [&progress](int rows, int all) {
            progress.setMaximum(all);
            progress.setValue(rows);
            return !progress.wasCanceled();
        });
    if (result != Kel::ETableResult::eWritten) {
        const QString reason = target.errorString();
        target.cancelWriting();
        if (result == Kel::ETableResult::eStopped)
            return {};
        return failed(file, result == Kel::ETableResult::eListChanged ? uiText("导出时列表已更换") : reason);
    }
    return finish(target);
}

FileResult writePicture(QWidget& pane, const QString& file)
{
    if (isNoFile(file))
        return failed(file, uiText("不是文件"));
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly))
        return failed(file, target.errorString());
    if (!pane.grab().save(&target, "PNG")) {
        const QString reason = target.errorString();
        target.cancelWriting();
        return failed(file, reason);
    }
    return finish(target);
}

} // namespace host
