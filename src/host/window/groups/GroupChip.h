#pragma once

#include <QPixmap>
#include <QToolButton>

#include <vector>

namespace host {

/// The coloured mark of a linking group in the title of a pane; a click asks for the menu of groups. GUI
/// thread.
class GroupChip : public QToolButton
{
    Q_OBJECT

public:
    explicit GroupChip(QWidget* parent = nullptr);

    /// From 0.
    void setGroup(int group);
    int group() const { return m_group; }

    /// A square in a group's colour, for menus and lists.
    static QIcon icon(int group);

    /// The squares of several groups, one beside the other.
    static QPixmap marks(const std::vector<int>& groups);

    /// "联动组 1" for 0.
    static QString name(int group);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_group = 0;
};

} // namespace host
