#include "demo/Programs.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/Gregorian.h"
#include "calendar/SolarHijriDate.h"
#include "demo/Names.h"

namespace demo {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr int kFormType = 3308;
constexpr int kCreator = 1;
constexpr int kMostCustomersOfBatch = 24;
constexpr int kPlanningMinutes = 9 * 60;  // the log's entries fall in the office's morning

enum class State { kTemporary, kFinal };

struct Plan {
  int supervisor;  // place in the network
  int firstDay;    // days from today
  int length;      // days; 0 for a program without visits yet
  State state;
  int documents;
  bool reported;  // promoters have reported what came of visits
  bool attachment;
};

constexpr Plan kPlans[] = {
    {0, -70, 12, State::kFinal, 2, true, true},     {3, -63, 6, State::kFinal, 1, false, false},
    {1, -49, 12, State::kFinal, 1, false, false},   {0, -42, 6, State::kFinal, 1, false, true},
    {4, -35, 9, State::kFinal, 0, false, false},    {5, -28, 6, State::kFinal, 1, false, false},
    {2, -21, 6, State::kFinal, 1, false, false},    {0, -14, 12, State::kTemporary, 0, true, true},
    {3, -7, 12, State::kTemporary, 0, true, false}, {1, -3, 6, State::kTemporary, 0, false, false},
    {0, 0, 12, State::kTemporary, 0, false, true},  {4, 1, 6, State::kTemporary, 0, false, false},
    {5, 4, 6, State::kTemporary, 0, false, false},  {0, 7, 0, State::kTemporary, 0, false, false},
};

struct Day {
  explicit Day(sys_days which)
      : days(which),
        farsi(calendar::SolarHijriDate::FromDays(which)),
        text(farsi.Text()),
        literal(calendar::GregorianLiteral(which)) {}

  bool Holiday() const { return farsi.Weekday() == 6; }

  sys_days days;
  calendar::SolarHijriDate farsi;
  std::string text;
  std::string literal;
};

class Programs {
 public:
  Programs(Database& database, Random& random, const Network& network, sys_days today)
      : random_(random),
        network_(network),
        today_(today),
        header_(database, "tblDistributionPromoterProgram",
                "ID, CreatorID, CreateDate, FarsiCreateDate, BranchID, SupervisorID, Notes, Code"),
        detail_(database, "tblDistributionPromoterProgramDetail",
                "ProgramID, PromoterID, FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence"),
        result_(database, "tblDistributionPromoterProgramVisitResult",
                "ProgramID, PromoterID, CustomerID, FarsiVisitDate, VisitDate, Result"),
        attachment_(database, "tblZomirFormAttachment", "FormTypeID, FormID, FileName, Content"),
        action_(database, "tblZomirFormAction",
                "EventID, FormCode, FormTypeID, Description, UserID, EventDate, FarsiEventDate, "
                "EventTime"),
        document_(database, "tblAccountDocument",
                  "ID, Code, DocumentDate, FarsiDocumentDate, Description"),
        line_(database, "tblAccountDocumentDetail",
              "DocumentID, RowNumber, AccountID, BranchID, Description, Debit, Credit, FormTypeID, "
              "FormID"),
        object_(database, "tblAccountDocumentObjects",
                "DocumentID, RowNumber, Sequence, ClassID, ObjectID") {}

  void Write(const Plan& plan) {
    ++id_;
    visits_ = 0;
    const Supervisor& supervisor = network_.supervisors[static_cast<std::size_t>(plan.supervisor)];
    WriteHeader(plan, supervisor);
    if (plan.length > 0) {
      const std::size_t promoters = static_cast<std::size_t>(random_.Between(2, 4));
      for (std::size_t at = 0; at < std::min(promoters, supervisor.promoters.size()); ++at) {
        WriteVisits(plan, supervisor.promoters[at]);
      }
    }
    if (plan.attachment) {
      attachment_.Row({kFormType, id_, "يادداشت برنامه " + std::to_string(id_) + ".txt",
                       "تعداد ويزيت برنامه ريزي شده: " + std::to_string(visits_)});
    }
    for (int number = 0; number < plan.documents; ++number) {
      WriteDocument(plan, supervisor.branch, number);
    }
  }

 private:
  void WriteHeader(const Plan& plan, const Supervisor& supervisor) {
    const Day created(std::min(today_, today_ + days(plan.firstDay - random_.Between(2, 5))));
    std::optional<std::string> notes;
    if (plan.length > 0) {
      notes = ProgramNotes()[static_cast<std::size_t>(id_ - 1) % ProgramNotes().size()];
    }
    const bool final = plan.state == State::kFinal;
    header_.Row({id_, kCreator, created.literal, created.text, supervisor.branch, supervisor.id,
                 notes, final ? Value(id_) : Value(std::nullopt)});
    Log(330801, created, "ايجاد شد.");
    if (final) Log(330804, Day(today_ + days(plan.firstDay + plan.length)), "اصلاح شد.");
  }

  void Log(int event, const Day& day, std::string_view what) {
    const std::string number = std::to_string(id_);
    action_.Row({event, number, kFormType,
                 "فرم برنامه بازارياب به ش.ر. ”" + number + "“ " + std::string(what), kCreator,
                 day.literal, day.text, kPlanningMinutes + random_.Below(180)});
  }

  /// Two of the promoter's paths by turns, Fridays free, each as one batch of the module would be.
  void WriteVisits(const Plan& plan, const Promoter& promoter) {
    std::vector<Day> turns[2];
    for (int offset = 0; offset < plan.length; ++offset) {
      Day day(today_ + days(plan.firstDay + offset));
      if (!day.Holiday()) turns[day.farsi.Weekday() % 2].push_back(std::move(day));
    }
    const std::size_t first =
        static_cast<std::size_t>(random_.Below(static_cast<int>(promoter.paths.size())));
    for (std::size_t turn = 0; turn < std::min<std::size_t>(2, promoter.paths.size()); ++turn) {
      const std::size_t at = promoter.paths[(first + turn) % promoter.paths.size()];
      WriteBatch(plan, promoter.id, turns[turn], network_.paths[at].customers);
    }
  }

  void WriteBatch(const Plan& plan, int promoter, const std::vector<Day>& daysOfBatch,
                  std::span<const int> customers) {
    std::optional<std::string> notes;
    if (random_.Chance(50)) notes = random_.Pick(VisitNotes());
    const auto count = static_cast<std::size_t>(random_.Between(12, kMostCustomersOfBatch));
    customers = customers.first(std::min(count, customers.size()));
    int sequence = 0;
    for (const Day& day : daysOfBatch) {
      for (int customer : customers) {
        ++sequence;
        detail_.Row({id_, promoter, day.text, day.literal, customer, notes, sequence});
        if (plan.reported && day.days < today_ && random_.Chance(30)) {
          result_.Row(
              {id_, promoter, customer, day.text, day.literal, random_.Pick(VisitResults())});
        }
      }
    }
    visits_ += sequence;
  }

  /// The first document of a program books its visits, a second one the promoters' transport, which
  /// shares the document with a line of another form.
  void WriteDocument(const Plan& plan, int branch, int number) {
    constexpr int kRialsOfVisit = 450'000;
    constexpr int kRialsOfTransport = 120'000;
    constexpr int kOtherFormType = 801;
    const bool transport = number > 0;
    const Day day(today_ + days(plan.firstDay + plan.length + 1 + 2 * number));
    const std::string program = " برنامه بازارياب " + std::to_string(id_);
    const std::string what = (transport ? "اياب و ذهاب" : "حق ويزيت") + program;
    ++documentId_;
    document_.Row({documentId_, 1400 + documentId_, day.literal, day.text, what});
    const std::int64_t amount =
        std::int64_t{visits_} * (transport ? kRialsOfTransport : kRialsOfVisit);
    line_.Row({documentId_, 1, transport ? 2 : 1, branch, what, amount, 0, kFormType, id_});
    if (transport) {
      line_.Row({documentId_, 2, 4, branch, "پرداخت از تنخواه", 0, amount, kOtherFormType, 57});
    } else {
      line_.Row({documentId_, 2, 3, branch, what, 0, amount, kFormType, id_});
    }
    object_.Row({documentId_, 1, 1, 19, branch});
    object_.Row({documentId_, 2, 1, 19, branch});
  }

  Random& random_;
  const Network& network_;
  sys_days today_;
  Insert header_;
  Insert detail_;
  Insert result_;
  Insert attachment_;
  Insert action_;
  Insert document_;
  Insert line_;
  Insert object_;
  int id_ = 0;
  int documentId_ = 0;
  int visits_ = 0;  // of the program being written
};

void WriteAccounts(Database& database) {
  constexpr int kBranchClass = 19;
  static constexpr std::string_view kAccounts[] = {"هزينه ويزيت بازاريابان", "هزينه اياب و ذهاب",
                                                   "حساب پرداختني بازاريابان", "تنخواه گردان شعب",
                                                   "اثاثه و منصوبات"};
  Insert account(database, "tblAccount", "ID, Code, Name");
  Insert relatedClass(database, "tblAccountRelatedClasses", "AccountID, ClassID, Sequence");
  int id = 0;
  for (std::string_view name : kAccounts) {
    ++id;
    account.Row({id, std::to_string(6100 + id), name});
    relatedClass.Row({id, kBranchClass, 1});
  }
  Insert assets(database, "tblAssetGroup", "Name, AssetGroupAccountID");
  assets.Row({"يخچال ويتريني", id});
  assets.Row({"استند فروشگاهي", id});
  assets.Row({"تابلو تبليغاتي", std::nullopt});
}

}  // namespace

void WritePrograms(Database& database, Random& random, const Network& network, sys_days today) {
  WriteAccounts(database);
  Programs programs(database, random, network, today);
  for (const Plan& plan : kPlans) programs.Write(plan);
}

}  // namespace demo
