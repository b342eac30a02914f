#include "platform/resources/pictures.h"

#include "platform/resources/resource_pack.h"

#include <QCryptographicHash>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QtMath>

namespace Zeb {

namespace {

const QRegularExpression& inkPattern()
{
    static const QRegularExpression pattern(QStringLiteral("var\\(--([A-Za-z0-9_-]+)\\s*,\\s*([^)]*)\\)"));
    return pattern;
}

} // namespace

bool isDrawing(const QByteArray& svg)
{
    // Anything but the text of a drawing is turned away here: the renderer complains on stderr.
    if (!svg.contains("<svg"))
        return false;
    QSvgRenderer renderer;
    return renderer.load(fillInks(svg, {}));
}

QStringList inksOf(const QByteArray& svg)
{
    QStringList result;
    auto matches = inkPattern().globalMatch(QString::fromUtf8(svg));
    while (matches.hasNext())
        result.append(matches.next().captured(1));
    result.removeDuplicates();
    return result;
}

QByteArray fillInks(const QByteArray& svg, const QHash<QString, QColor>& colors)
{
    const QString text = QString::fromUtf8(svg);
    QString result;
    int copied = 0;
    auto matches = inkPattern().globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        result += text.mid(copied, match.capturedStart() - copied);
        const QColor color = colors.value(match.captured(1));
        result += color.isValid() ? color.name(QColor::HexRgb) : match.captured(2);
        copied = match.capturedEnd();
    }
    result += text.mid(copied);
    return result.toUtf8();
}

QPixmap renderDrawing(const QByteArray& svg, const QSize& size, qreal ratio)
{
    const qreal scale = ratio > 0 ? ratio : 1;
    QPixmap picture(qCeil(size.width() * scale), qCeil(size.height() * scale));
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QSvgRenderer renderer(svg);
    QPainter painter(&picture);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    return picture;
}

QString pathOfDrawing(const QByteArray& svg)
{
    static QHash<QByteArray, QString> paths;
    const QByteArray hash = QCryptographicHash::hash(svg, QCryptographicHash::Sha1).toHex();
    const auto known = paths.constFind(hash);
    if (known != paths.constEnd())
        return *known;
    const QString name = QString::fromLatin1(hash) + ".svg";
    const QString path = registerResource(name, svg);
    paths.insert(hash, path);
    return path;
}

} // namespace Zeb
