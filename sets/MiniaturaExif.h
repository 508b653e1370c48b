#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QSize>

// What the head of a JPEG tells before its picture: the size from the frame
// header and the small picture a camera embeds in its Exif block (the second
// image directory), as file managers use it for their thumbnails. Only the
// segments before the picture's data are read; the rest of the file is left.
struct IntestazioneJpeg {
    bool Jpeg = false;     // the file begins as a JPEG
    QSize Intera;          // invalid when no frame header came before the data
    QByteArray Miniatura;  // the embedded JPEG, empty when there is none
};

IntestazioneJpeg LeggiIntestazioneJpeg(QIODevice &dispositivo);

// The embedded JPEG of an Exif block (what follows "Exif\0\0" in APP1), or
// empty when the block has none or points outside itself.
QByteArray MiniaturaDaExif(const QByteArray &tiff);
