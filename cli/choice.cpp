#include "cli/choice.h"

#include "cli/failure.h"

int ChosenValue(const Invocation& invocation, Option option, std::span<const Choice> choices) {
    if (!invocation.Has(option)) return choices.front().value;
    std::string words;
    for (const Choice& choice : choices) {
        if (invocation.Value(option) == choice.word) return choice.value;
        words.append(words.empty() ? "" : ", ").append(choice.word);
    }
    throw Failure(ExitCode::WrongUsage,
                  std::string("--").append(InfoOf(option).name).append(" takes one of ") + words);
}
