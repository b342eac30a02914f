<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The terminal's own texts stand in the sources in Chinese; here are those that Qt brings. -->
<TS version="2.1" language="zh_CN">
<context>
  <name>QPlatformTheme</name>
  <message><source>OK</source><translation>确定</translation></message>
  <message><source>Cancel</source><translation>取消</translation></message>
  <message><source>Close</source><translation>关闭</translation></message>
  <message><source>Apply</source><translation>应用</translation></message>
  <message><source>Save</source><translation>保存</translation></message>
  <message><source>Open</source><translation>打开</translation></message>
  <message><source>&amp;Yes</source><translation>是(&amp;Y)</translation></message>
  <message><source>&amp;No</source><translation>否(&amp;N)</translation></message>
  <message><source>Restore Defaults</source><translation>恢复默认</translation></message>
</context>
<context>
  <name>QFileDialog</name>
  <message><source>Look in:</source><translation>位置：</translation></message>
  <message><source>Directory:</source><translation>文件夹：</translation></message>
  <message><source>File &amp;name:</source><translation>文件名(&amp;N)：</translation></message>
  <message><source>Files of type:</source><translation>类型：</translation></message>
  <message><source>&amp;Open</source><translation>打开(&amp;O)</translation></message>
  <message><source>&amp;Choose</source><translation>选择(&amp;C)</translation></message>
  <message><source>&amp;Save</source><translation>保存(&amp;S)</translation></message>
  <message><source>Back</source><translation>后退</translation></message>
  <message><source>Forward</source><translation>前进</translation></message>
  <message><source>Parent Directory</source><translation>上一级</translation></message>
  <message><source>Create New Folder</source><translation>新建文件夹</translation></message>
  <message><source>&amp;New Folder</source><translation>新建文件夹(&amp;N)</translation></message>
  <message><source>List View</source><translation>列表</translation></message>
  <message><source>Detail View</source><translation>详细</translation></message>
  <message><source>All Files (*)</source><translation>所有文件 (*)</translation></message>
  <message><source>Directories</source><translation>文件夹</translation></message>
  <message><source>Computer</source><translation>计算机</translation></message>
</context>
<context>
  <name>QFileSystemModel</name>
  <message><source>Name</source><translation>名称</translation></message>
  <message><source>Size</source><translation>大小</translation></message>
  <message><source>Computer</source><translation>计算机</translation></message>
</context>
<context>
  <name>QDirModel</name>
  <message><source>Name</source><translation>名称</translation></message>
</context>
<context>
  <name>QKeySequenceEdit</name>
  <message><source>Press shortcut</source><translation>请按快捷键</translation></message>
</context>
</TS>
