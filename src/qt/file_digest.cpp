#include "qt/file_digest.h"

#include "base/failure_codes.h"

#include <QCryptographicHash>
#include <QFile>

namespace tickervantage {

Result<std::string> sha256_of_file(const std::string& path) {
    QFile file(QString::fromStdString(path));
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return failed(FailureCode::file_unreadable, {path}, said_by_others(file.errorString().toStdString()));
    return hash.result().toHex().toStdString();
}

} // namespace tickervantage
