#include "client/options.h"

#include "client/date_option.h"

namespace zef::client {
namespace {

constexpr char kRuleHelp[] = R"(A rule of repetition:
  --every day                             every day; also "3 days"
  --every 2 weeks --on mon,fri            every other week on Monday and Friday
  --every month --on 15                   on the 15th of every month
  --every month --on "last friday"        on the last Friday of every month
  --every year --on "15 june"             every year on 15 June
  --every year --on "first monday of june"
Without --on the day is taken from the first date. A rule goes on for ever unless
--until or --times ends it.

)";
}  // namespace

void AddDate(CLI::App& app, const std::string& name, std::optional<Date>& date, const std::string& help) {
  app.add_option_function<std::string>(
         name, [&date, name](const std::string& text) { date = ReadDate(name, text); }, help)
      ->type_name("DATE");
}

void AddFile(CLI::App& app, Arguments& arguments) {
  if (!arguments.place.IsFile()) return;
  AddText(app, "FILE", arguments.place.file, "The database file", "")->required();
}

void AddFolderOption(CLI::App& app, Arguments& arguments, const std::string& help) {
  AddText(app, "--folder", arguments.folder, help, "ID|NAME");
}

void AddRule(CLI::App& app, RuleOptions& rule) {
  AddText(app, "--every", rule.every, "Repeats: day, week, month, year, or a number of them as in 2 weeks", "[N] UNIT");
  AddText(app, "--on", rule.on, "The days on which it repeats, see below", "DAYS");
  AddDate(app, "--until", rule.until, "The last day of the repetition");
  AddNumber(app, "--times", rule.times, "How many times it takes place", "N", 1);
  app.footer(std::string(kRuleHelp) + kGlobalHelp);
}

}  // namespace zef::client
