#include "voice/text_reader.h"

#include "voice/text_scanner.h"

namespace voice {

struct TextReader::Knowledge
{
    TextFolder folder;
    NumberSpeller numbers;
    Patterns patterns;
};

TextReader::TextReader() : knowledge_(std::make_unique<Knowledge>()) {}
TextReader::~TextReader() = default;

std::vector<SpokenWord> TextReader::words(const QString& text)
{
    const FoldedText folded = knowledge_->folder.fold(text);
    std::vector<SpokenWord> words = Scanner(folded, knowledge_->patterns, knowledge_->numbers).run();
    if (!words.empty())
        words.back().end = text.size();
    return words;
}

} // namespace voice
