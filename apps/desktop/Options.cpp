#include "Options.h"

#include <charconv>

namespace desktop {

namespace {

int Number(const std::string& option, const std::string& value, int lowest, int highest) {
  int number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  if (error != std::errc() || end != value.data() + value.size() || number < lowest ||
      number > highest) {
    throw UsageError(option + " wants a whole number from " + std::to_string(lowest) + " to " +
                     std::to_string(highest) + ", not \"" + value + "\".");
  }
  return number;
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& option = arguments[i];
    const auto value = [&]() -> const std::string& {
      if (i + 1 == arguments.size() || arguments[i + 1].empty()) {
        throw UsageError(option + " wants a value; see --help.");
      }
      return arguments[++i];
    };
    if (option == "--help" || option == "-h") {
      options.help = true;
    } else if (option == "--database") {
      options.database = value();
    } else if (option == "--customers") {
      options.customers = Number(option, value(), 1, 1'000'000);
    } else if (option == "--user") {
      options.user = Number(option, value(), 1, 2'147'483'647);
    } else if (option == "--program") {
      options.program = Number(option, value(), 0, 2'147'483'647);
    } else if (option == "--tour") {
      options.tourDirectory = value();
    } else {
      throw UsageError("\"" + option + "\" is no option; see --help.");
    }
  }
  return options;
}

const char* HelpText() {
  return R"(./run [options]        opens the promoter program editor

  --database FILE    a database file to work on, instead of the sample office
  --customers N      make the sample office with N customers (5000)
  --user N           the user who works: 1 has every right, 2 those to open and look (1)
  --program N        open program N; without it the editor opens empty
  --tour DIR         play a whole day by itself and save a picture of every screen in DIR;
                     needs no display
  --help             this text

The sample office is made on the first run and kept in your data folder, one for each number of
customers. A tour without --database plays on an office of its own, which is dropped afterwards.
)";
}

}  // namespace desktop
