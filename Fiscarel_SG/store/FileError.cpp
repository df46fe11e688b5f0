#include "Fiscarel_SG/store/FileSystem.h"

#include <cerrno>

namespace fiscarel {

bool FileError::isMissing() const noexcept { return code == ENOENT || code == ENOTDIR; }

std::string FileError::reason() const {
    switch (code) {
    case ENOENT:
    case ENOTDIR:
        return "Sie ist nicht vorhanden.";
    case EACCES:
    case EPERM:
        return "Der Zugriff ist nicht erlaubt.";
    case EROFS:
        return "Der Datenträger lässt kein Schreiben zu.";
    case ENOSPC:
    case EDQUOT:
        return "Auf dem Datenträger ist kein Platz mehr.";
    case EFBIG:
        return "Sie ist zu gross.";
    case EISDIR:
        return "Es ist ein Ordner.";
    case EINVAL:
        return "Es ist keine gewöhnliche Datei.";
    case EEXIST:
        return "Es gibt schon eine Datei dieses Namens.";
    case ENAMETOOLONG:
        return "Der Name ist zu lang.";
    case EBADF:
        return "Sie ist nicht zum Lesen geöffnet.";
    case EIO:
        return "Der Datenträger meldet einen Fehler.";
    default:
        return "Das Betriebssystem meldet den Fehler " + std::to_string(code) + ".";
    }
}

std::string FileError::description() const {
    return "«" + path.filename().string() + "»: " + reason();
}

} // namespace fiscarel
