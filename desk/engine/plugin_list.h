#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "data/database.h"
#include "engine/plugin_window.h"

namespace desk {

/// A list with a plug-in behind it: the lines of a query, of which some are selected. Towards the plug-in it is the
/// "ListEvents" object. It is opened by its owner, see OpenWindow.
class PluginList : public PluginWindow {
 public:
  // --- the user ---------------------------------------------------------------------------------------------------

  /// Reads the lines anew; nothing is selected afterwards.
  void refresh() override;
  void select_all();
  /// Selects lines by their 0-based place, in this order. Raises 9 for a place that isn't there.
  void select_lines(std::vector<std::size_t> aLines);

  // --- what can be seen -------------------------------------------------------------------------------------------

  /// Amounts as the book stores them.
  const Rows& lines() const { return lines_; }
  const std::vector<std::size_t>& selection() const { return selection_; }
  std::int32_t class_type() const { return class_type_; }

  // --- the plug-in ------------------------------------------------------------------------------------------------

  std::string type_name() const override { return "ListEvents"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 protected:
  /// The database outlives the list.
  PluginList(Database& database, std::int32_t nClassType, std::span<const ShippedBand> aBands,
             std::span<const ShippedTool> aTools);

  Database& database() const { return database_; }
  virtual Rows read_lines() = 0;
  /// What the list's data object answers beyond its class; nothing for a member that it lacks.
  virtual std::optional<arap::Variant> data_call(arap::Member, arap::Arguments) { return std::nullopt; }

 private:
  template <class Window>
  friend class OpenWindow;
  friend class ListServerObject;

  void open(const arap::Ref<arap::Object>& oPlugin);
  arap::Ref<arap::Object> selected_rows() const;

  Database& database_;
  std::int32_t class_type_;
  Rows lines_;
  std::vector<std::size_t> selection_;
};

}  // namespace desk
