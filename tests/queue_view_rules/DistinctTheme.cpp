#include "DistinctTheme.h"

#include "platform/resources/CUiResource.h"
#include "platform/utils/CSingletonT.h"

#include <QColor>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdlib>

namespace queue_view_rules {

namespace {

constexpr int kColorsOfAByte = 256;

bool isColorKey(const QString& key)
{
    return key.startsWith("ic_clr_") || key.startsWith("kel_clr_") || key.startsWith("clr_");
}

QJsonObject distinctColors(const QStringList& keys)
{
    QJsonObject colors;
    int number = 0;
    for (const QString& key : keys) {
        if (!isColorKey(key))
            continue;
        colors[key] = QColor(number % kColorsOfAByte, 0x40 + number / kColorsOfAByte, 0x80).name();
        ++number;
    }
    return colors;
}

bool loadDistinctTheme()
{
    auto& resource = utils::CSingletonT<Zeb::CUiResource>::instance();
    const QJsonObject fonts{{"ic_fnt_index_modulegroup_entruststatus_text", QJsonObject{{"size", 12}}},
                            {"ic_fnt_index_modulegroup_transaction", QJsonObject{{"size", 13}}},
                            {"ic_fnt_index_modulegroup_today_text", QJsonObject{{"size", 11}}}};
    const QJsonObject theme{{"name", "distinct"},
                            {"base", "dark"},
                            {"colors", distinctColors(resource.keys())},
                            {"fonts", fonts}};

    const QTemporaryDir dir;
    QFile file(dir.filePath("distinct.json"));
    file.open(QIODevice::WriteOnly);
    file.write(QJsonDocument(theme).toJson());
    file.close();
    QString error;
    if (!resource.loadThemeFile(file.fileName(), &error)) {
        QTextStream(stderr) << error << "\n";
        std::abort();
    }
    return true;
}

} // namespace

void useDistinctTheme()
{
    static const bool loaded = loadDistinctTheme();
    (void)loaded;
}

} // namespace queue_view_rules
