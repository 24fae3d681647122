-- open
-- calls spZomirHasPermission 1 111
Select Isnull(BasePath,'') as InstallDirectory from vwZomirBasePath Where ID=1 
go
Select getdate() as today
go
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwUserMinor where ID=1
go
Select ID, Name from vwSaleSupervisorMinor where ID=3
go
-- cmdNew
-- calls spZomirHasPermission 1 330801
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
-- lists
Select * from vwSaleSupervisorMajor
go
Select * from vwAccountBranchMajor
go
-- sltSupervisor 4
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
-- sltBranch 2
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- cmdTempSave
-- calls spZomirHasPermission 1 330805
insert into tblDistributionPromoterProgram (CreatorID, CreateDate, FarsiCreateDate, BranchID, SupervisorID, Notes) values (1, '20251123','1404/09/02' ,2,4,NULL)
go
Select SCOPE_IDENTITY() as newID
go
-- calls dbo.spZomirInsertFormAction 330801 3308 1 510
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=15
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- cmdEdit
-- calls spZomirHasPermission 1 330802
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=15
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- cmdCancel
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=15
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- cmdEdit
-- calls spZomirHasPermission 1 330802
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=15
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- cmdTempSave
-- calls spZomirHasPermission 1 330805
update tblDistributionPromoterProgram  Set CreatorID=1, BranchID=2, SupervisorID=4, Notes='برنامه نو', Code=NULL Where ID=15
go
-- calls dbo.spZomirInsertFormAction 330804 3308 1 510
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=15
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- cmdAddBatch
Select distinct r.Description as RegionName, r.ID   from tblDistributionPathPromoters inner join tblDistributionPath p on PathID=p.ID inner join tblDistributionRegion r on r.ID = p.RegionID  where EmployeeID=-1
go
Select distinct p.Name + ' ('+isnull(r.Description,'')+')'as PathName, p.ID  from tblDistributionPathPromoters inner join tblDistributionPath p on p.ID=PathID inner join tblDistributionRegion r on r.ID = p.RegionID  where EmployeeID=-1 and p.RegionID in (-1)
go
-- lists
Select * from vwSalePromoterMajor where ID in (select x.PromoterID from tblSaleSupervisorPromoter x where x.SupervisorID=4)
go
Select * from vwOrganizationMajor
go
Select * from vwAccountBranchMajor
go
Select * from vwZomirWorkActivityMajor
go
-- sltPromoter 19
Select distinct r.Description as RegionName, r.ID   from tblDistributionPathPromoters inner join tblDistributionPath p on PathID=p.ID inner join tblDistributionRegion r on r.ID = p.RegionID  where EmployeeID=19
go
Select ID, Name from vwSalePromoterMinor where ID=19
go
-- flxRegion.cmdSelectAll
Select distinct p.Name + ' ('+isnull(r.Description,'')+')'as PathName, p.ID  from tblDistributionPathPromoters inner join tblDistributionPath p on p.ID=PathID inner join tblDistributionRegion r on r.ID = p.RegionID  where EmployeeID=19 and p.RegionID in (10)
go
Select distinct p.Name + ' ('+isnull(r.Description,'')+')'as PathName, p.ID  from tblDistributionPathPromoters inner join tblDistributionPath p on p.ID=PathID inner join tblDistributionRegion r on r.ID = p.RegionID  where EmployeeID=19 and p.RegionID in (10,11)
go
Select distinct p.Name + ' ('+isnull(r.Description,'')+')'as PathName, p.ID  from tblDistributionPathPromoters inner join tblDistributionPath p on p.ID=PathID inner join tblDistributionRegion r on r.ID = p.RegionID  where EmployeeID=19 and p.RegionID in (10,11,12)
go
Select distinct p.Name + ' ('+isnull(r.Description,'')+')'as PathName, p.ID  from tblDistributionPathPromoters inner join tblDistributionPath p on p.ID=PathID inner join tblDistributionRegion r on r.ID = p.RegionID  where EmployeeID=19 and p.RegionID in (10,11,12,13)
go
-- cmdSearch
Select ID, Code , ltrim(rtrim(isnull(FirstName,'')+' '+isnull(Name,''))) as 'Name', Address, CellPhone, Phone1, Phone2, Address , (Select p.Name from tblDistributionPath p where p.ID=do.PathID) as PathName, (Select r.Description from tblDistributionRegion r where r.ID in (Select p.RegionID from tblDistributionPath p where p.ID=do.PathID)) as RegionName, (Select w.Name from tblZomirWorkActivity w where w.ID=WorkActivityID) as WorkActivityName from tblOrganization left outer join tblDistributionOrganization do on tblOrganization.ID=do.OrganizationID  where  do.PathID in (40,41,44,45,47,48,49,50,51,53,54,55,56,58,59)  and 1=1
go
-- cmdAdd
insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence) select 15, 19 , substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2) , dbo.getEnglishDate(substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2)) , o.ID, 'it''s new', ROW_NUMBER() OVER(ORDER BY d.id, o.ID ASC) AS aRow  from  dbo.fnZomirStringToTable('14040901,14040902,14040903') d , dbo.fnZomirStringToTable('3,5') o  left outer join tblDistributionOrganization do on o.ID=do.OrganizationID  where not exists(select pd.* from tblDistributionPromoterProgramDetail pd  where pd.ProgramID=15 and pd.PromoterID=19 and replace(pd.FarsiVisitDate,'/','')=convert(varchar,d.ID)  and pd.CustomerID=o.ID) 
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
-- sltCustomer 5
Select ID, Name from vwOrganizationMinor where ID=5
go
-- sltBranch 2
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- sltWorkActivity 1
Select ID, Name from vwZomirWorkActivityMinor where ID=1
go
-- cmdSearch
Select ID, Code , ltrim(rtrim(isnull(FirstName,'')+' '+isnull(Name,''))) as 'Name', Address, CellPhone, Phone1, Phone2, Address , (Select p.Name from tblDistributionPath p where p.ID=do.PathID) as PathName, (Select r.Description from tblDistributionRegion r where r.ID in (Select p.RegionID from tblDistributionPath p where p.ID=do.PathID)) as RegionName, (Select w.Name from tblZomirWorkActivity w where w.ID=WorkActivityID) as WorkActivityName from tblOrganization left outer join tblDistributionOrganization do on tblOrganization.ID=do.OrganizationID  where  do.PathID in (40,41,44,45,47,48,49,50,51,53,54,55,56,58,59)  and 1=1 and  Code >= '21100001' and  Code <= '21100001' and  do.BranchID = 2 and  ltrim(rtrim(isnull(FirstName,'')+' '+isnull(Name,''))) like '%بهروز%' and  ID = 5 and  WorkActivityID = 1
go
-- cmdAdd
insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence) select 15, 19 , substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2) , dbo.getEnglishDate(substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2)) , o.ID, null, ROW_NUMBER() OVER(ORDER BY d.id, o.ID ASC) AS aRow  from  dbo.fnZomirStringToTable('14040901,14040902,14040903') d , dbo.fnZomirStringToTable('5') o  left outer join tblDistributionOrganization do on o.ID=do.OrganizationID  where not exists(select pd.* from tblDistributionPromoterProgramDetail pd  where pd.ProgramID=15 and pd.PromoterID=19 and replace(pd.FarsiVisitDate,'/','')=convert(varchar,d.ID)  and pd.CustomerID=o.ID) 
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
-- flxDetail double 1 2
select x.ID from dbo.fnZomirStringToTable('14040901') x
go
select CustomerID from tblDistributionPromoterProgramDetail pd where pd.ProgramID=15 and FarsiVisitDate='1404/09/01' and pd.PromoterID=19
go
Select ID, Code , ltrim(rtrim(isnull(FirstName,'')+' '+isnull(Name,''))) as 'Name', Address, CellPhone, Phone1, Phone2, Address , (Select p.Name from tblDistributionPath p where p.ID=do.PathID) as PathName, (Select r.Description from tblDistributionRegion r where r.ID in (Select p.RegionID from tblDistributionPath p where p.ID=do.PathID)) as RegionName, (Select w.Name from tblZomirWorkActivity w where w.ID=WorkActivityID) as WorkActivityName from tblOrganization left outer join tblDistributionOrganization do on tblOrganization.ID=do.OrganizationID  where ID in (3,5)
go
-- cmdDeleteSelected
delete tblDistributionPromoterProgramDetail  where ProgramID=15 and PromoterID=19 and FarsiVisitDate like '1404/09/01'
go
delete tblDistributionPromoterProgramDetail  where ProgramID=15 and PromoterID=19 and FarsiVisitDate like '1404/09/03'
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
-- cmdEdit
-- calls spZomirHasPermission 1 330802
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=15
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- cmdFinalSave
-- calls spZomirHasPermission 1 330806
update tblDistributionPromoterProgram  Set CreatorID=1, BranchID=2, SupervisorID=4, Notes='برنامه نو', Code=ID Where ID=15
go
-- calls dbo.spZomirInsertFormAction 330804 3308 1 510
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=15
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- cmdSearch
Select  TOP 1000 ID as 'شماره رايانه اي' , (Select x.Name from vwSalePromoterMajor x where x.ID=PromoterID) as 'بازارياب' , FarsiVisitDate as 'تاريخ ويزيت' , (Select x.Code from tblOrganization x where x.ID=CustomerID) as 'كد مشتري' , (Select ltrim(rtrim(isnull(x.FirstName,'')+' '+isnull(x.Name,''))) from tblOrganization x where x.ID=CustomerID) as 'نام مشتري' , (Select r.Description from tblDistributionRegion r inner join tblDistributionPath p on p.RegionID=r.ID where p.ID in (Select do.PathID from tblDistributionOrganization do where do.OrganizationID=CustomerID)) as 'منطقه' , (Select p.Name from tblDistributionPath p where p.ID in (Select do.PathID from tblDistributionOrganization do where do.OrganizationID=CustomerID)) as 'مسير' , p.Notes as 'شرح' , FarsiCreateDate as 'تاريخ ايجاد' , (Select x.Name from vwEmployeeMajor x Where x.ID=SupervisorID) as 'مدير برنامه' , (Select x.Name from vwAccountBranchMajor x where x.ID=BranchID) as 'شعبه'  from tblDistributionPromoterProgram p left outer join tblDistributionPromoterProgramDetail pd on p.ID=pd.ProgramID   Where 1=1 order by pd.VisitDate, 2, 4
go
-- lists
Select * from vwUserMajor
go
Select * from vwDistributionPromoterProgramMajor
go
Select * from vwSaleSupervisorMajor
go
Select * from vwSalePromoterMajor
go
Select * from vwOrganizationMajor
go
Select * from vwAccountBranchMajor
go
-- cmdSearch
Select ID as 'شماره رايانه اي' , (Select x.Name from vwSalePromoterMajor x where x.ID=PromoterID) as 'بازارياب' , FarsiVisitDate as 'تاريخ ويزيت' , (Select x.Code from tblOrganization x where x.ID=CustomerID) as 'كد مشتري' , (Select ltrim(rtrim(isnull(x.FirstName,'')+' '+isnull(x.Name,''))) from tblOrganization x where x.ID=CustomerID) as 'نام مشتري' , (Select r.Description from tblDistributionRegion r inner join tblDistributionPath p on p.RegionID=r.ID where p.ID in (Select do.PathID from tblDistributionOrganization do where do.OrganizationID=CustomerID)) as 'منطقه' , (Select p.Name from tblDistributionPath p where p.ID in (Select do.PathID from tblDistributionOrganization do where do.OrganizationID=CustomerID)) as 'مسير' , p.Notes as 'شرح' , FarsiCreateDate as 'تاريخ ايجاد' , (Select x.Name from vwEmployeeMajor x Where x.ID=SupervisorID) as 'مدير برنامه' , (Select x.Name from vwAccountBranchMajor x where x.ID=BranchID) as 'شعبه'  from tblDistributionPromoterProgram p left outer join tblDistributionPromoterProgramDetail pd on p.ID=pd.ProgramID   Where 1=1 and ID = 15 order by pd.VisitDate, 2, 4
go
-- sltCreator 1
Select ID, Name from vwUserMinor where ID=1
go
-- sltSupervisor 4
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
-- sltBranch 2
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- sltProgram 15
Select ID, Name from vwDistributionPromoterProgramMinor where ID=15
go
-- sltPromoter 19
Select ID, Name from vwSalePromoterMinor where ID=19
go
-- sltCustomer 5
Select ID, Name from vwOrganizationMinor where ID=5
go
-- cmdSearch
Select ID as 'شماره رايانه اي' , (Select x.Name from vwSalePromoterMajor x where x.ID=PromoterID) as 'بازارياب' , FarsiVisitDate as 'تاريخ ويزيت' , (Select x.Code from tblOrganization x where x.ID=CustomerID) as 'كد مشتري' , (Select ltrim(rtrim(isnull(x.FirstName,'')+' '+isnull(x.Name,''))) from tblOrganization x where x.ID=CustomerID) as 'نام مشتري' , (Select r.Description from tblDistributionRegion r inner join tblDistributionPath p on p.RegionID=r.ID where p.ID in (Select do.PathID from tblDistributionOrganization do where do.OrganizationID=CustomerID)) as 'منطقه' , (Select p.Name from tblDistributionPath p where p.ID in (Select do.PathID from tblDistributionOrganization do where do.OrganizationID=CustomerID)) as 'مسير' , p.Notes as 'شرح' , FarsiCreateDate as 'تاريخ ايجاد' , (Select x.Name from vwEmployeeMajor x Where x.ID=SupervisorID) as 'مدير برنامه' , (Select x.Name from vwAccountBranchMajor x where x.ID=BranchID) as 'شعبه'  from tblDistributionPromoterProgram p left outer join tblDistributionPromoterProgramDetail pd on p.ID=pd.ProgramID   Where 1=1 and ID = 15 and CreatorID = 1 and ProgramID = 15 and SupervisorID= 4 and PromoterID = 19 and CustomerID = 5 and BranchID= 2 and p.Notes like '%نو%' and CreateDate = '20251123' and VisitDate = '20251123' order by pd.VisitDate, 2, 4
go
-- flxSearch double 1 3
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=15
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- cmdPreview
Select * from tblZomirReportTemplate where FormTypeID = 3308
go
-- cmdPrint
Select * From tblZomirReportTemplate Where ID = 1
go
-- cmdBackToTemp
-- calls spZomirHasPermission 1 330807
Select distinct x.DocumentID from tblAccountDocumentDetail x Where x.FormTypeID= 3308 and x.FormID=15
go
Update tblDistributionPromoterProgram Set Code=null Where ID=15
go
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=15
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=15 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=4
go
Select ID, Name from vwAccountBranchMinor where ID=2
go
-- cmdDelete
-- calls spZomirHasPermission 1 330803
Delete tblDistributionPromoterProgramDetail Where ProgramID=15
go
Delete tblZomirFormAttachment Where FormTypeID = 3308 and FormID = 15
go
Delete tblDistributionPromoterProgram Where ID=15
go
-- calls dbo.spZomirInsertFormAction 330803 3308 1 510
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=3
go
-- view 1
-- calls spZomirHasPermission 1 111
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=1
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=1
go
Select ID, Name from vwAccountBranchMinor where ID=1
go
-- cmdViewAccountDoc
-- calls spZomirHasPermission 1 303
Select Top 1 DocumentID from tblAccountDocumentDetail Where FormID=1 and FormTypeID=3308
go
-- post 1 1 1 19 2
insert into tblAccountDocumentObjects (DocumentID, RowNumber, Sequence, ClassID, ObjectID)  Select 1, 1, Sequence, 19, 2 from tblAccountRelatedClasses ac  Where ac.AccountID=1 and ac.ClassID=19 and not Exists(Select x.* from tblAccountDocumentObjects x where x.ClassID= 19 and x.DocumentID=1 and x.RowNumber=1)
go
update tblAccountDocumentDetail set BranchID=2 Where DocumentID=1 and RowNumber=1
go
-- account 1
Select x.AssetGroupAccountID from tblAssetGroup x Where x.ID=1
go
-- cmdBackToTemp
-- calls spZomirHasPermission 1 330807
Select distinct x.DocumentID from tblAccountDocumentDetail x Where x.FormTypeID= 3308 and x.FormID=1
go
Delete tblAccountDocumentDetail Where DocumentID=1
go
Delete tblAccountDocument Where ID=1
go
Delete tblAccountDocumentDetail Where DocumentID=2
go
Delete tblAccountDocument Where ID=2
go
Update tblDistributionPromoterProgram Set Code=null Where ID=1
go
Select getdate() as today
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=-1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
select * from tblDistributionPromoterProgram Where ID=1
go
select PromoterID , (Select x.Name from vwEmployeeMajor x where x.ID=PromoterID) as PromoterName , VisitDate, FarsiVisitDate, Notes, count(*) as cnt from tblDistributionPromoterProgramDetail  Where ProgramID=1 group by PromoterID, VisitDate, FarsiVisitDate, Notes
go
Select ID, Name from vwSaleSupervisorMinor where ID=1
go
Select ID, Name from vwAccountBranchMinor where ID=1
go
