<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
  <name>terminal</name>
  <message><source>文件(&amp;F)</source><translation>&amp;File</translation></message>
  <message><source>回放(&amp;P)</source><translation>Re&amp;play</translation></message>
  <message><source>跳到阶段</source><translation>Jump to phase</translation></message>
  <message><source>队列(&amp;Q)</source><translation>&amp;Queue</translation></message>
  <message><source>窗格(&amp;W)</source><translation>&amp;Panes</translation></message>
  <message><source>新增窗格</source><translation>New pane</translation></message>
  <message><source>联动组</source><translation>Linking group</translation></message>
  <message><source>外观(&amp;V)</source><translation>&amp;View</translation></message>
  <message><source>帮助(&amp;H)</source><translation>&amp;Help</translation></message>
  <message><source>打开日档案…</source><translation>Open day archive…</translation></message>
  <message><source>导入行情文件夹…</source><translation>Import market data folder…</translation></message>
  <message><source>模拟交易所</source><translation>Simulated exchange</translation></message>
  <message><source>新窗口</source><translation>New window</translation></message>
  <message><source>设置…</source><translation>Settings…</translation></message>
  <message><source>退出</source><translation>Quit</translation></message>
  <message><source>播放</source><translation>Play</translation></message>
  <message><source>暂停</source><translation>Pause</translation></message>
  <message><source>加快</source><translation>Faster</translation></message>
  <message><source>放慢</source><translation>Slower</translation></message>
  <message><source>最快速度</source><translation>As fast as possible</translation></message>
  <message><source>下一笔委托</source><translation>Next order</translation></message>
  <message><source>上一笔委托</source><translation>Previous order</translation></message>
  <message><source>下一笔成交</source><translation>Next deal</translation></message>
  <message><source>上一笔成交</source><translation>Previous deal</translation></message>
  <message><source>下一个快照</source><translation>Next snapshot</translation></message>
  <message><source>上一个快照</source><translation>Previous snapshot</translation></message>
  <message><source>前进十秒</source><translation>Ten seconds forward</translation></message>
  <message><source>后退十秒</source><translation>Ten seconds back</translation></message>
  <message><source>前进一分钟</source><translation>One minute forward</translation></message>
  <message><source>后退一分钟</source><translation>One minute back</translation></message>
  <message><source>跳到时间…</source><translation>Jump to time…</translation></message>
  <message><source>集合竞价</source><translation>Call auction</translation></message>
  <message><source>开盘</source><translation>Open</translation></message>
  <message><source>午间休市</source><translation>Lunch break</translation></message>
  <message><source>收盘</source><translation>Close</translation></message>
  <message><source>下一阶段</source><translation>Next phase</translation></message>
  <message><source>上一阶段</source><translation>Previous phase</translation></message>
  <message><source>五档</source><translation>Five levels</translation></message>
  <message><source>十档</source><translation>Ten levels</translation></message>
  <message><source>首档明细</source><translation>First level</translation></message>
  <message><source>横向</source><translation>Horizontal</translation></message>
  <message><source>纵向</source><translation>Vertical</translation></message>
  <message><source>列表</source><translation>List</translation></message>
  <message><source>全部委托</source><translation>All orders</translation></message>
  <message><source>回到盘口中央</source><translation>Back to the centre</translation></message>
  <message><source>队列台</source><translation>Queue desk</translation></message>
  <message><source>逐笔台</source><translation>Tick desk</translation></message>
  <message><source>全息台</source><translation>Chart desk</translation></message>
  <message><source>我的布局</source><translation>My layouts</translation></message>
  <message><source>保存布局…</source><translation>Save layout…</translation></message>
  <message><source>删除布局…</source><translation>Remove layout…</translation></message>
  <message><source>联动组 1</source><translation>Linking group 1</translation></message>
  <message><source>联动组 2</source><translation>Linking group 2</translation></message>
  <message><source>联动组 3</source><translation>Linking group 3</translation></message>
  <message><source>联动组 4</source><translation>Linking group 4</translation></message>
  <message><source>筛选逐笔列表…</source><translation>Filter tick list…</translation></message>
  <message><source>全息图显示全天</source><translation>Whole day on the chart</translation></message>
  <message><source>全息图显示最近成交</source><translation>Latest deals on the chart</translation></message>
  <message><source>全息条</source><translation>Hologram strip</translation></message>
  <message><source>复制选中行</source><translation>Copy selected row</translation></message>
  <message><source>导出 CSV（UTF-8）…</source><translation>Export CSV (UTF-8)…</translation></message>
  <message><source>导出 CSV（GBK）…</source><translation>Export CSV (GBK)…</translation></message>
  <message><source>导出图片…</source><translation>Export picture…</translation></message>
  <message><source>跟踪委托…</source><translation>Track order…</translation></message>
  <message><source>结束跟踪</source><translation>End tracking</translation></message>
  <message><source>深色</source><translation>Dark</translation></message>
  <message><source>浅色</source><translation>Light</translation></message>
  <message><source>切换深浅</source><translation>Dark or light</translation></message>
  <message><source>红涨绿跌</source><translation>Red up, green down</translation></message>
  <message><source>绿涨红跌</source><translation>Green up, red down</translation></message>
  <message><source>色盲友好（橙涨蓝跌）</source><translation>Colour-blind (orange up, blue down)</translation></message>
  <message><source>快捷键</source><translation>Keyboard shortcuts</translation></message>
  <message><source>关于</source><translation>About</translation></message>
  <message><source>工具栏</source><translation>Tool bar</translation></message>
  <message><source>%1（%2）</source><translation>%1 (%2)</translation></message>
  <message><source>搜索命令或按键</source><translation>Search commands or keys</translation></message>
  <message><source>恢复此项</source><translation>Reset this one</translation></message>
  <message><source>全部恢复</source><translation>Reset all</translation></message>
  <message><source>双击或回车修改，Delete 清除</source><translation>Double-click or Enter changes a key, Delete clears it</translation></message>
  <message><source>请按新的快捷键，Esc 取消</source><translation>Press the new key, Esc to cancel</translation></message>
  <message><source>已更改：%1</source><translation>Changed: %1</translation></message>
  <message><source>%1 已用于“%2”</source><translation>%1 is already used for “%2”</translation></message>
  <message><source>%1 由窗格自己使用</source><translation>%1 is used by the panes themselves</translation></message>
  <message><source>设置</source><translation>Settings</translation></message>
  <message><source>外观</source><translation>Look</translation></message>
  <message><source>数据</source><translation>Data</translation></message>
  <message><source>语言</source><translation>Language</translation></message>
  <message><source>恢复默认</source><translation>Restore defaults</translation></message>
  <message><source>关闭</source><translation>Close</translation></message>
  <message><source>主题</source><translation>Theme</translation></message>
  <message><source>涨跌颜色</source><translation>Colours of prices</translation></message>
  <message><source>简洁风格</source><translation>Concise style</translation></message>
  <message><source>字体大小</source><translation>Font size</translation></message>
  <message><source>行高固定的面板在大字体下可能显示不全。</source><translation>Panels with rows of fixed height may cut large fonts.</translation></message>
  <message><source> 毫秒</source><translation> ms</translation></message>
  <message><source>刷新周期</source><translation>Refresh period</translation></message>
  <message><source>面板查看新数据的间隔，50 毫秒到 5 秒。行情本身不受影响。</source><translation>How often panels look for new data, from 50 ms to 5 s. The feed itself is not affected.</translation></message>
  <message><source>界面语言</source><translation>Language of the terminal</translation></message>
  <message><source>面板内的文字始终为中文。</source><translation>Texts inside the panels are always Chinese.</translation></message>
  <message><source>设置文件已损坏（%1），已另存为 %2</source><translation>The settings file was broken (%1) and is now %2</translation></message>
  <message><source>无法读取设置 %1：%2</source><translation>Cannot read settings %1: %2</translation></message>
  <message><source>无法写入设置 %1：%2</source><translation>Cannot write settings %1: %2</translation></message>
  <message><source>不是设置文件</source><translation>no settings file</translation></message>
  <message><source>不是对象</source><translation>no object</translation></message>
  <message><source>深度行情终端</source><translation>Depth terminal</translation></message>
  <message><source>不是时间：%1（例如 10:30 或 09:25:03）</source><translation>Not a time: %1 (for example 10:30 or 09:25:03)</translation></message>
  <message><source>打开日档案</source><translation>Open day archive</translation></message>
  <message><source>导入行情文件夹</source><translation>Import market data folder</translation></message>
  <message><source>此日没有盘口快照，引擎不知道十档价格：委托队列为空</source><translation>This day has no snapshots, so the ten prices are not known: the order queue stays empty</translation></message>
  <message><source>此日没有逐笔委托，也没有公布的队列：委托队列为空</source><translation>This day has neither orders nor published queues: the order queue stays empty</translation></message>
  <message><source>已取消载入</source><translation>Loading was cancelled</translation></message>
  <message><source>没有选中的行可复制</source><translation>No selected row to copy</translation></message>
  <message><source>请先点选要导出的窗格</source><translation>First click the pane to be exported</translation></message>
  <message><source>导出 CSV</source><translation>Export CSV</translation></message>
  <message><source>导出图片</source><translation>Export picture</translation></message>
  <message><source>没有找到这样的限价委托</source><translation>No such limit order was found</translation></message>
  <message><source>关闭提示（Esc）</source><translation>Close the message (Esc)</translation></message>
  <message><source>回放时间</source><translation>Time of the replay</translation></message>
  <message><source>浮动或放回</source><translation>Float or put back</translation></message>
  <message><source>关闭窗格</source><translation>Close pane</translation></message>
  <message><source>放回窗口</source><translation>Put back into the window</translation></message>
  <message><source>浮动</source><translation>Float</translation></message>
  <message><source>无法写入 %1：%2</source><translation>Cannot write %1: %2</translation></message>
  <message><source>已导出 %1</source><translation>Exported %1</translation></message>
  <message><source>不是文件</source><translation>not a file</translation></message>
  <message><source>正在导出%1</source><translation>Exporting %1</translation></message>
  <message><source>取消</source><translation>Cancel</translation></message>
  <message><source>导出时列表已更换</source><translation>the list was exchanged while it was exported</translation></message>
  <message><source>浅蓝</source><translation>Light blue</translation></message>
  <message><source>紫</source><translation>Purple</translation></message>
  <message><source>深蓝</source><translation>Dark blue</translation></message>
  <message><source>黄</source><translation>Yellow</translation></message>
  <message><source>跟踪委托</source><translation>Track order</translation></message>
  <message><source>买入</source><translation>Buy</translation></message>
  <message><source>卖出</source><translation>Sell</translation></message>
  <message><source>时间</source><translation>Time</translation></message>
  <message><source>价格（元）</source><translation>Price (yuan)</translation></message>
  <message><source>数量（手）</source><translation>Quantity (lots)</translation></message>
  <message><source>方向</source><translation>Side</translation></message>
  <message><source>颜色</source><translation>Colour</translation></message>
  <message><source>跟踪</source><translation>Track</translation></message>
  <message><source>回放速度</source><translation>Speed of the replay</translation></message>
  <message><source>跳到 09:30:00</source><translation>Go to 09:30:00</translation></message>
  <message><source>跳到时间</source><translation>Jump to time</translation></message>
  <message><source>输入时间后回车</source><translation>Type a time, then Enter</translation></message>
  <message><source>载入中 %p%</source><translation>Loading %p%</translation></message>
  <message><source>载入进度</source><translation>Loading progress</translation></message>
  <message><source>最快</source><translation>Max</translation></message>
  <message><source>证券列表</source><translation>Instruments</translation></message>
  <message><source>证券</source><translation>Instrument</translation></message>
  <message><source>报价方式</source><translation>Price type</translation></message>
  <message><source>点击盘口填入；本票据不发送委托</source><translation>A click on the quotes fills it; this ticket sends nothing</translation></message>
  <message><source>卖一</source><translation>Ask 1</translation></message>
  <message><source>卖二</source><translation>Ask 2</translation></message>
  <message><source>卖三</source><translation>Ask 3</translation></message>
  <message><source>卖四</source><translation>Ask 4</translation></message>
  <message><source>卖五</source><translation>Ask 5</translation></message>
  <message><source>卖六</source><translation>Ask 6</translation></message>
  <message><source>卖七</source><translation>Ask 7</translation></message>
  <message><source>卖八</source><translation>Ask 8</translation></message>
  <message><source>卖九</source><translation>Ask 9</translation></message>
  <message><source>卖十</source><translation>Ask 10</translation></message>
  <message><source>买一</source><translation>Bid 1</translation></message>
  <message><source>买二</source><translation>Bid 2</translation></message>
  <message><source>买三</source><translation>Bid 3</translation></message>
  <message><source>买四</source><translation>Bid 4</translation></message>
  <message><source>买五</source><translation>Bid 5</translation></message>
  <message><source>买六</source><translation>Bid 6</translation></message>
  <message><source>买七</source><translation>Bid 7</translation></message>
  <message><source>买八</source><translation>Bid 8</translation></message>
  <message><source>买九</source><translation>Bid 9</translation></message>
  <message><source>买十</source><translation>Bid 10</translation></message>
  <message><source>最新价</source><translation>Latest price</translation></message>
  <message><source>限价</source><translation>Limit price</translation></message>
  <message><source>涨跌停价</source><translation>Price limit</translation></message>
  <message><source>对手价</source><translation>Best opposite</translation></message>
  <message><source>买卖盘</source><translation>Quotes</translation></message>
  <message><source>资讯</source><translation>Information</translation></message>
  <message><source>品种</source><translation>Instruments</translation></message>
  <message><source>委托队列</source><translation>Order queue</translation></message>
  <message><source>全息成交图</source><translation>Deal chart</translation></message>
  <message><source>全息放大图</source><translation>Deal chart, zoomed</translation></message>
  <message><source>逐笔成交</source><translation>Deals</translation></message>
  <message><source>千档盘口</source><translation>Price ladder</translation></message>
  <message><source>逐笔委托与撤单</source><translation>Orders and cancels</translation></message>
  <message><source>盘口下单</source><translation>Order ticket</translation></message>
  <message><source>各档</source><translation>Levels</translation></message>
  <message><source>各档委托</source><translation>Orders by level</translation></message>
  <message><source>图中成交</source><translation>Deals in the chart</translation></message>
  <message><source>图中行情区间</source><translation>Intervals in the chart</translation></message>
  <message><source>选中价位的委托</source><translation>Orders of the selected price</translation></message>
  <message><source>逐笔委托</source><translation>Orders</translation></message>
  <message><source>逐笔撤单</source><translation>Cancels</translation></message>
  <message><source>盘口</source><translation>Quote</translation></message>
  <message><source>票据</source><translation>Ticket</translation></message>
  <message><source>代码</source><translation>Code</translation></message>
  <message><source>名称</source><translation>Name</translation></message>
  <message><source>最新</source><translation>Last</translation></message>
  <message><source>涨跌幅</source><translation>Change</translation></message>
  <message><source>保存布局</source><translation>Save layout</translation></message>
  <message><source>删除布局</source><translation>Remove layout</translation></message>
  <message><source>载入</source><translation>Loading</translation></message>
  <message><source>历史数据尚未到齐</source><translation>History is not complete yet</translation></message>
  <message><source>正在载入历史数据</source><translation>Loading history</translation></message>
  <message><source>实时</source><translation>Live</translation></message>
  <message><source>%1数据完整</source><translation>%1data are complete</translation></message>
  <message><source>缺口</source><translation>Gap</translation></message>
  <message><source>%1数据缺失，价格可能不准，等待下一快照或重新载入</source><translation>%1data are missing, prices may be wrong; waiting for the next snapshot or a reload</translation></message>
  <message><source>数据缺口，%1等待下一快照</source><translation>Gap in the data, %1waiting for the next snapshot</translation></message>
  <message><source>陈旧</source><translation>Stale</translation></message>
  <message><source>%1没有新数据，价格可能已过时</source><translation>%1no new data, prices may be outdated</translation></message>
  <message><source>没有新数据，%1价格可能已过时</source><translation>No new data, %1prices may be outdated</translation></message>
  <message><source>重建</source><translation>Rebuilt</translation></message>
  <message><source>%1十档已与快照一致，缺口中的单笔委托仍缺失，重新载入后完整</source><translation>%1the ten levels agree with the snapshot; orders lost in the gap are missing until a reload</translation></message>
  <message><source>%1 起，</source><translation>since %1, </translation></message>
  <message><source>（缺 %1 批）</source><translation> (%1 batches missing)</translation></message>
  <message><source>双品种台</source><translation>Two-instrument desk</translation></message>
  <message><source>本组没有委托列表可查</source><translation>This group has no list of orders to search</translation></message>
  <message><source>这种窗格已经够多了</source><translation>There are enough panes of this kind</translation></message>
  <message><source>移到主窗口</source><translation>Move to the main window</translation></message>
  <message><source>移到窗口 %1</source><translation>Move to window %1</translation></message>
  <message><source>移到新窗口</source><translation>Move to a new window</translation></message>
  <message><source>联动组 %1</source><translation>Linking group %1</translation></message>
  <message><source>：</source><translation>: </translation></message>
  <message><source>回放一日的逐笔行情，重建每个价位上的委托队列。</source><translation>Replays a day of tick data and rebuilds the queue of orders at every price.</translation></message>
  <message><source>小节休息</source><translation>Break</translation></message>
  <message><source>午休</source><translation>Lunch</translation></message>
  <message><source>小休</source><translation>Break</translation></message>
  <message><source>下午开盘</source><translation>Afternoon session</translation></message>
  <message><source>恢复交易</source><translation>Trading resumes</translation></message>
  <message><source>午后</source><translation>PM</translation></message>
  <message><source>恢复</source><translation>Resume</translation></message>
  <message><source>竞价</source><translation>Auction</translation></message>
  <message><source>开盘集合竞价</source><translation>Opening auction</translation></message>
  <message><source>集合竞价结束</source><translation>End of the auction</translation></message>
  <message><source>撮合</source><translation>Match</translation></message>
  <message><source>收盘集合竞价</source><translation>Closing auction</translation></message>
  <message><source>数据缺口 %1 – %2</source><translation>Data missing %1 – %2</translation></message>
  <message><source>滞后，实际 %1 倍</source><translation>Lagging, in fact %1×</translation></message>
  <message><source>这个方向没有更多记录</source><translation>There are no more records in this direction</translation></message>
  <message><source>此日没有这个阶段</source><translation>This day has no such phase</translation></message>
</context>
</TS>
