#include "LibraryAnswers.h"

#include "ISubTitle.h"
#include "maker/ZemSubtitleMaker.h"

std::vector<Expected> questionsFor(const std::vector<Shown>& shown)
{
    std::vector<Expected> questions;
    for (size_t i = 0; i < shown.size(); ++i) {
        const Shown& caption = shown[i];
        const long long last = caption.end - 1;
        questions.push_back({caption.start, caption.text});
        questions.push_back({caption.start + (last - caption.start) / 2, caption.text});
        questions.push_back({last, caption.text});
        if (i + 1 < shown.size() && caption.end < shown[i + 1].start)
            questions.push_back({caption.end + (shown[i + 1].start - caption.end) / 2, QString()});
    }
    return questions;
}

std::vector<QString> askLibrary(const std::string& path, const std::vector<Expected>& questions)
{
    std::vector<QString> answers;
    ISubTitle* sub = createSubtitle();
    if (sub->open(path.c_str())) {
        for (const Expected& question : questions) {
            SubtitleData* data = sub->getSubtitleData(question.time, 0);
            QString text;
            if (data) {
                text = static_cast<ZemSubtitleMaker*>(sub)->lastText();
                if (text.startsWith(QLatin1Char('\n')))
                    text.remove(0, 1);
                text.remove(QChar(0x2060));
                text.replace(QChar(0x2028), QLatin1Char('\n'));
                sub->destroySubData(data);
            }
            answers.push_back(text);
        }
    }
    sub->close();
    destroySubtitle(&sub);
    return answers;
}
