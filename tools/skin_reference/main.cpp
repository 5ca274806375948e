// Writes the reference of skins and its pictures: kestova-skin-reference SKIN DIRECTORY
#include "ReferenceText.h"
#include "SkinPictures.h"

#include "skin_check/SkinCheck.h"

#include <QApplication>
#include <QDir>
#include <QSaveFile>

#include <cstdio>

namespace {

int Fail(const QString& message)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    return EXIT_FAILURE;
}

bool WriteText(const QString& path, const QString& text)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 && file.commit();
}

QVector<SkinStyle> StylesOfKind(const SkinLines& skin, const QString& kind)
{
    QVector<SkinStyle> styles;
    for (const SkinStyle& style : StylesOf(skin)) {
        if (style.kind == kind)
            styles << style;
    }
    return styles;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() != 2)
        return Fail(QStringLiteral("Usage: kestova-skin-reference SKIN DIRECTORY"));
    SkinLines skin;
    QString trouble;
    if (!ReadSkin(arguments[0], skin, trouble))
        return Fail(arguments[0] + ": " + trouble);

    const QDir directory(arguments[1]);
    const QString page = directory.filePath(QStringLiteral("skin-reference.md"));
    if (!directory.mkpath(QStringLiteral("images")) || !WriteText(page, ReferenceText(skin)))
        return Fail(page + ": expected a file that can be written");
    for (const SkinStyle& first : FirstStyles()) {
        const QString name = PictureName(first.kind);
        if (name.isEmpty())
            continue;
        const QImage picture = PictureOfStyles(arguments[0], StylesOfKind(skin, first.kind));
        if (picture.isNull() || !picture.save(directory.filePath(name), "PNG"))
            return Fail(directory.filePath(name) + ": expected a picture that can be written");
    }
    return EXIT_SUCCESS;
}
