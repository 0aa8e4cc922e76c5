#include "commands/LineCommand.h"

#include "base/Text.h"
#include "commands/EventCommands.h"
#include "model/words/DraftInWords.h"
#include "platform/Clock.h"
#include "platform/Locale.h"

#include <utility>

namespace kaz {

WordsContext LineCommand::Context() const {
    WordsContext context;
    context.view = {app_.platform.clock.Now(), app_.EuropeanDates()};
    context.category = clsLayers::kFirstOwn;
    for (std::int16_t slot = clsLayers::kFirstOwn; slot < clsLayers::kAll; ++slot)
        context.categories.push_back({slot, app_.layers.Layer(slot)});
    return context;
}

LineCommand::Look LineCommand::LookAt(std::string_view line) const {
    const WordsContext context = Context();
    const EventInWords read = ReadInWords(line, context);
    if (!read.event) return {false, read.refusal};
    const DraftInWords draft = Describe(*read.event, context, app_.platform.locale.Data());
    return {true, draft.what + std::string(kLineBreak) + draft.when};
}

LineCommand::Added LineCommand::Add(std::string_view line) const {
    const WordsContext context = Context();
    EventInWords read = ReadInWords(line, context);
    if (!read.event)
        return {std::nullopt,
                read.refusal.empty() ? "Write what and when, such as: dentist tomorrow 15:30" : read.refusal};
    read.event->Owner(app_.Owner());
    std::string what = Describe(*read.event, context, app_.platform.locale.Data()).what;
    return {EventCommands(app_, {}).AddNew(std::move(*read.event)), std::move(what)};
}

}  // namespace kaz
