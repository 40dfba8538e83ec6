#include "qt/in_words.h"

#include <QCoreApplication>
#include <QLocale>

#include <system_error>

namespace tickervantage {
namespace {

std::string own_words(FailureCode code) {
    return QCoreApplication::translate("failures", words_of(code)).toStdString();
}

// The C library's words, which follow the locale that Qt has set for the process.
std::string own_system_words(int error) {
    return QString::fromLocal8Bit(std::generic_category().message(error).c_str()).toStdString();
}

} // namespace

QString in_words(const Failure& failure) {
    return QString::fromStdString(put_into_words(failure, {.words = own_words, .system_words = own_system_words}));
}

QString in_words(const Sentence& sentence) {
    const std::string words = QCoreApplication::translate(sentence.context, sentence.words).toStdString();
    return QString::fromStdString(filled(words, sentence, QLocale().decimalPoint().toStdString()));
}

QString in_words(const Quantity& quantity) {
    return QString::fromStdString(text_of(quantity, QLocale().decimalPoint().toStdString()));
}

} // namespace tickervantage
