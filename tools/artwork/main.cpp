// Draws the timeline's pictures: kestova-artwork OUTDIR [CONTACT_SHEET.png]
#include "artwork/Artwork.h"

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2 && argc != 3) {
        std::fputs("usage: kestova-artwork OUTDIR [CONTACT_SHEET.png]\n", stderr);
        return 2;
    }
    const Artwork::Gallery gallery = Artwork::DrawAll();
    const QString failure = Artwork::Write(gallery, QString::fromLocal8Bit(argv[1]));
    if (!failure.isEmpty()) {
        std::fprintf(stderr, "kestova-artwork: %s\n", qPrintable(failure));
        return 1;
    }
    if (argc == 3 && !Artwork::DrawContactSheet(gallery).save(QString::fromLocal8Bit(argv[2]))) {
        std::fprintf(stderr, "kestova-artwork: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
